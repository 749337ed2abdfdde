#include "qt/icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QString>
#include <algorithm>
#include <utility>
#include <vector>

namespace qt {
namespace {

// Reads a picture when it is asked for: the large ones would take a third of the program's start.
class IconEngine : public QIconEngine {
public:
    IconEngine(QString name, std::vector<int> sizes) : name_(std::move(name)), sizes_(std::move(sizes)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const qreal scale = painter->device()->devicePixelRatioF();
        painter->drawPixmap(rect, pixmap(rect.size() * scale, mode, state));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        const QPixmap picture(QStringLiteral(":/icons/%1-%2.png").arg(name_).arg(NearestSize(size)));
        return picture.size() == size ? picture
                                      : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    [[nodiscard]] QIconEngine* clone() const override { return new IconEngine(*this); }

private:
    // The smallest picture that need not be enlarged.
    [[nodiscard]] int NearestSize(const QSize& size) const
    {
        const int wanted = std::min(std::max(size.width(), size.height()), sizes_.back());
        return *std::lower_bound(sizes_.begin(), sizes_.end(), wanted);
    }

    QString name_;
    std::vector<int> sizes_;
};

}  // namespace

QIcon ProgramIcon()
{
    // The icon owns its engine.
    return QIcon(new IconEngine(QStringLiteral("vantrel"), {16, 22, 24, 32, 48, 64, 128, 256}));
}

QIcon ModuleIcon(int module)
{
    return QIcon(new IconEngine(QStringLiteral("module-%1").arg(module), {24, 48, 64, 128}));
}

}  // namespace qt
