#include "platform/qt/Pictures.h"

#include <utility>

namespace ecg {

Pictures::Pictures(std::filesystem::path folder) : folder_(std::move(folder)) {}

void Pictures::Draw(QPainter& painter, const QString& name, const QRectF& area) const
{
    QSvgRenderer* picture = Find(name);
    if (picture == nullptr || area.isEmpty())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    picture->render(&painter, area);
    painter.restore();
}

QIcon Pictures::Icon(const QString& name, int size) const
{
    QIcon icon;
    for (const int scale : {1, 2}) {
        QPixmap pixmap(size * scale, size * scale);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        Draw(painter, name, QRectF(pixmap.rect()));
        painter.end();
        pixmap.setDevicePixelRatio(scale);
        icon.addPixmap(pixmap);
    }
    return icon;
}

QSvgRenderer* Pictures::Find(const QString& name) const
{
    auto found = loaded_.find(name);
    if (found == loaded_.end()) {
        const auto file = folder_ / (name.toStdString() + ".svg");
        auto picture = std::make_unique<QSvgRenderer>();
        std::error_code error;
        const bool loaded =
            std::filesystem::is_regular_file(file, error) && picture->load(QString::fromStdString(file.string()));
        found = loaded_.emplace(name, loaded ? std::move(picture) : nullptr).first;
    }
    return found->second.get();
}

}  // namespace ecg
