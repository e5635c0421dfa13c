#include "qt/base/SelectedIcon.h"

#include "qt/base/paint/Contrast.h"

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

namespace tessa::qt {

namespace {

// Greys of icon themes have a tinge.
constexpr int kMostTinge = 24;
// Shades of one colour, in degrees of hue.
constexpr int kMostApart = 30, kWholeTurn = 360;
constexpr int kHardlyThere = 32, kAllThere = 192; // of an opacity of 255
constexpr double kLeastPictureContrast = 3;       // what pictures need to be told from their ground

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

// No part of it stands out from the selection.
bool HidesOnSelection(const QImage& image) {
    const QColor ground = QGuiApplication::palette().color(QPalette::Highlight);
    bool drawn = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            // Edges are mixed with the ground in any case.
            if (pixel.alpha() < kAllThere) continue;
            if (Contrast::Between(pixel, ground) >= kLeastPictureContrast) return false;
            drawn = true;
        }
    }
    return drawn;
}

class SelectedLook final : public QIconEngine {
public:
    /// Whether a picture takes the colour of the text.
    using Rule = bool (*)(const QImage& image);

    SelectedLook(QIcon icon, Rule rule) : m_icon(std::move(icon)), m_rule(rule) {}

    [[nodiscard]] QIconEngine* clone() const override { return new SelectedLook(m_icon, m_rule); }
    bool isNull() override { return m_icon.isNull(); }
    QString iconName() override { return m_icon.name(); }
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return m_icon.actualSize(size, mode, state);
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        painter->drawPixmap(rect, pixmap(rect.size() * painter->device()->devicePixelRatio(), mode, state));
    }
    // The size is in pixels of the screen. The caller knows how many of them make one of a window.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        const bool selected = mode == QIcon::Selected;
        QPixmap drawn = m_icon.pixmap(size, 1, selected ? QIcon::Normal : mode, state);
        if (!selected || !m_rule(drawn.toImage())) return drawn;
        QPainter painter(&drawn);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(drawn.rect(), QGuiApplication::palette().color(QPalette::HighlightedText));
        return drawn;
    }

private:
    QIcon m_icon;
    Rule m_rule;
};

QIcon WithLook(const QIcon& icon, SelectedLook::Rule rule) {
    return icon.isNull() ? icon : QIcon(new SelectedLook(icon, rule));
}

} // namespace

QIcon WithSelectedLook(const QIcon& icon) { return WithLook(icon, HasOneColour); }

QIcon WithSelectedPageLook(const QIcon& icon) { return WithLook(icon, HidesOnSelection); }

} // namespace tessa::qt
