#include "qt/bar/customize/ToolMime.h"

#include "qt/base/Icons.h"
#include "qt/base/Strings.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QIODevice>
#include <QMimeData>
#include <QPainter>
#include <QWidget>
#include <algorithm>

namespace tessa::qt {

namespace {

constexpr int kPictureMargin = 4, kIconSize = 16;

/// The band that has the tool of its own; empty for a tool of the master list.
Text OwnerOf(const CommandBar& bar, const Tool& tool) {
    const auto& own = bar.OwnTools();
    const auto found = std::ranges::find(own, &tool, [](const auto& each) { return each.Item.get(); });
    return found == own.end() ? Text() : found->Band;
}

bool IsStillThere(const DraggedTool& dragged) {
    const auto& entries = dragged.From->Entries();
    return dragged.Index < entries.size() && entries[dragged.Index].Item == dragged.Item;
}

// A label with picture and caption, which the pointer carries.
QPixmap Face(const QWidget& widget, const Tool& tool) {
    const QString title = ToQt(Customization::TitleOf(tool));
    const QFontMetrics metrics = widget.fontMetrics();
    const QIcon icon = Icons::Of(tool.Image);
    const int indent = kPictureMargin + (icon.isNull() ? 0 : kIconSize + kPictureMargin);
    const QSize size(indent + metrics.horizontalAdvance(title) + kPictureMargin,
                     std::max(metrics.height(), kIconSize) + 2 * kPictureMargin);
    QPixmap face(size * widget.devicePixelRatioF());
    face.setDevicePixelRatio(widget.devicePixelRatioF());
    face.fill(widget.palette().color(QPalette::Window));
    QPainter painter(&face);
    painter.setFont(widget.font());
    painter.setPen(widget.palette().color(QPalette::WindowText));
    painter.drawRect(0, 0, size.width() - 1, size.height() - 1);
    icon.paint(&painter, kPictureMargin, (size.height() - kIconSize) / 2, kIconSize, kIconSize);
    painter.drawText(QRect(QPoint(indent, 0), size), Qt::AlignVCenter | Qt::AlignLeft, title);
    return face;
}

} // namespace

namespace ToolMime {

const QString& Type() {
    static const QString type = QStringLiteral("application/x-tessaview-tool");
    return type;
}

QMimeData* Write(const CommandBar& bar, const DraggedTool& dragged) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QCoreApplication::applicationPid() << ToQt(OwnerOf(bar, *dragged.Item)) << ToQt(dragged.Item->Name())
           << (dragged.From ? ToQt(dragged.From->Name()) : QString()) << static_cast<quint64>(dragged.Index);
    auto* data = new QMimeData;
    data->setData(Type(), bytes);
    return data;
}

std::optional<DraggedTool> Read(const CommandBar& bar, const QMimeData* data) {
    if (!data || !data->hasFormat(Type())) return std::nullopt;
    const QByteArray bytes = data->data(Type());
    QDataStream stream(bytes);
    qint64 process = 0;
    QString owner, name, band;
    quint64 index = 0;
    stream >> process >> owner >> name >> band >> index;
    if (stream.status() != QDataStream::Ok || process != QCoreApplication::applicationPid()) return std::nullopt;
    DraggedTool dragged;
    dragged.Item = owner.isEmpty() ? bar.Share(FromQt(name)) : bar.ShareOwn(FromQt(owner), FromQt(name));
    dragged.From = bar.FindBand(FromQt(band));
    dragged.Index = index;
    if (!dragged.Item || (dragged.From ? !IsStillThere(dragged) : !band.isEmpty())) return std::nullopt;
    return dragged;
}

void Drag(QWidget& source, const CommandBar& bar, const DraggedTool& dragged) {
    // Qt deletes it. The widget from which it comes may end before the drag does.
    auto* drag = new QDrag(QCoreApplication::instance());
    drag->setMimeData(Write(bar, dragged));
    drag->setPixmap(Face(source, *dragged.Item));
    drag->setHotSpot({kPictureMargin, kPictureMargin});
    drag->exec(Qt::MoveAction);
}

} // namespace ToolMime

} // namespace tessa::qt
