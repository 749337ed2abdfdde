// A hand that answers whatever dialog of the program comes up, so that commands can be called one after
// another.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>

class QFileDialog;

class Hand : public QObject {
public:
    Hand();

    // The name that the next file dialog gets; without one it is cancelled.
    QString File;

    [[nodiscard]] int FileDialogs() const { return fileDialogs_; }

private:
    void Look();
    void Answer(QWidget& dialog);
    void AnswerFile(QFileDialog& dialog);
    void AnswerForm(QWidget& form);

    QPointer<QWidget> form_;
    int tries_ = 0;  // of the form
    int fileDialogs_ = 0;
    QElapsedTimer quiet_;  // since a dialog was there
};
