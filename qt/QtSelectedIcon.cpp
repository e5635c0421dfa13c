#include "qt/QtSelectedIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace {

// Greys of icon themes have a tinge.
constexpr int kMostTinge = 24;
// Shades of one colour, in degrees of hue.
constexpr int kMostApart = 30, kWholeTurn = 360;
constexpr int kHardlyThere = 32; // of an opacity of 255

bool IsGrey(const QColor& colour) {
    const auto [least, most] = std::minmax({colour.red(), colour.green(), colour.blue()});
    return most - least <= kMostTinge;
}

bool AreShades(int hue, int other) {
    const int apart = std::abs(hue - other);
    return std::min(apart, kWholeTurn - apart) <= kMostApart;
}

// Of one colour, its shades and greys.
bool HasOneColour(const QImage& image) {
    std::optional<int> hue;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() <= kHardlyThere || IsGrey(pixel)) continue;
            if (!AreShades(hue.value_or(pixel.hue()), pixel.hue())) return false;
            hue = pixel.hue();
        }
    }
    return true;
}

class SelectedLook final : public QIconEngine {
public:
    explicit SelectedLook(QIcon icon) : m_icon(std::move(icon)) {}

    [[nodiscard]] QIconEngine* clone() const override { return new SelectedLook(m_icon); }
    bool isNull() override { return m_icon.isNull(); }
    QString iconName() override { return m_icon.name(); }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return m_icon.actualSize(size, mode, state);
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatio(), mode, state));
    }
    // The size is in pixels of the screen; whoever asks knows how many of them there are to one of a window.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const bool selected = mode == QIcon::Selected;
        QPixmap drawn = m_icon.pixmap(size, 1, selected ? QIcon::Normal : mode, state);
        if (!selected || !HasOneColour(drawn.toImage())) return drawn;
        QPainter painter(&drawn);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(drawn.rect(), QGuiApplication::palette().color(QPalette::HighlightedText));
        return drawn;
    }

private:
    QIcon m_icon;
};

} // namespace

QIcon WithSelectedLook(const QIcon& icon) { return icon.isNull() ? icon : QIcon(new SelectedLook(icon)); }
