// The system's pictures, drawn as SVG and sharp at any size.
#pragma once

#include <QIcon>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <filesystem>
#include <map>
#include <memory>

namespace ecg {

class Pictures {
public:
    // Pictures are `<name>.svg` in `folder`.
    explicit Pictures(std::filesystem::path folder);

    // Draws the named picture to fill `area`; one that cannot be read leaves the area alone.
    void Draw(QPainter& painter, const QString& name, const QRectF& area) const;

    // The named picture as an icon of `size` pixels, sharp on finer screens too.
    QIcon Icon(const QString& name, int size) const;

private:
    QSvgRenderer* Find(const QString& name) const;

    std::filesystem::path folder_;
    mutable std::map<QString, std::unique_ptr<QSvgRenderer>> loaded_;  // null: looked for and not found
};

}  // namespace ecg
