// The sense of the payoffs and the criterion of a decision problem without probabilities, asked when it is
// solved.
#pragma once

#include <QRadioButton>
#include <QVBoxLayout>
#include <array>

#include "qt/forms.h"

class frmdecnopt : public qt::ModalForm {
    Q_OBJECT

public:
    explicit frmdecnopt(QWidget* parent = nullptr);

private:
    void AddSense(QVBoxLayout* page);
    void AddCriteria(QVBoxLayout* page);
    void Accept();

    QRadioButton* optMaximize = nullptr;
    QRadioButton* optMinimize = nullptr;
    std::array<QRadioButton*, 3> Optcriterion{};
};
