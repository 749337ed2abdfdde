#include "play/clipboardsteps.h"

#include <QClipboard>
#include <QGuiApplication>

#include "play/hands.h"

namespace play {

// The line end behind the last line begins no further one.
Outcome CopyFocus(const Step&, Stage& stage)
{
    Press(Qt::Key_C, Qt::ControlModifier, {});
    QString text = QGuiApplication::clipboard()->text();
    if (text.endsWith('\n')) text.chop(1);
    const QStringList lines = text.split('\n');
    stage.Out.Line("clipboard " + std::to_string(lines.size()));
    for (const QString& line : lines)
        stage.Out.Line("|" + line.toStdString());
    return kDone;
}

Outcome PasteIntoFocus(const Step& step, Stage&)
{
    QString text = QString::fromStdString(step.Argument(1).Text);
    text.replace("\\t", "\t").replace("\\n", "\n");
    QGuiApplication::clipboard()->setText(text);
    Press(Qt::Key_V, Qt::ControlModifier, {});
    return kDone;
}

}  // namespace play
