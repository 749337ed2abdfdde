// The display that the program is painted on. Like a real one it shows so many pictures a second and no more,
// however fast the user is.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <vector>

namespace play {

class Display : public QObject {
public:
    Display();

    // Paints what has waited for its turn, when it is time for the next picture.
    void Refresh();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool IsTimeToPaint() const;

    QElapsedTimer sincePicture_;
    std::vector<QPointer<QObject>> waiting_;
};

}  // namespace play
