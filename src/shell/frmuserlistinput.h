// The choice of a model from a list.
#pragma once

#include "qt/forms.h"

class QListWidget;

class frmuserlistinput : public qt::ModalForm {
    Q_OBJECT
public:
    explicit frmuserlistinput(QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Accept();

    QListWidget* lstModelSelection = nullptr;
};
