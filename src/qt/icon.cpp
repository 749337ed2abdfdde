#include "qt/icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <algorithm>
#include <array>

namespace qt {
namespace {

// Reads a picture when it is asked for: the large ones would take a third of the program's start.
class IconEngine : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const QPixmap picture(QStringLiteral(":/icons/vantrel-%1.png").arg(NearestSize(size)));
        return picture.size() == size ? picture
                                      : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new IconEngine(*this); }

private:
    // The smallest picture that need not be enlarged.
    static int NearestSize(const QSize& size)
    {
        constexpr std::array kSizes{16, 22, 24, 32, 48, 64, 128, 256};
        const int wanted = std::min(std::max(size.width(), size.height()), kSizes.back());
        return *std::lower_bound(kSizes.begin(), kSizes.end(), wanted);
    }
};

}  // namespace

QIcon ProgramIcon()
{
    return QIcon(new IconEngine);  // the icon owns its engine
}

}  // namespace qt
