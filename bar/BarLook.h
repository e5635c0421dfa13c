#pragma once

namespace tessa {

enum class IconSize { Small, Medium, Large };

/// Whether toolbars show pictures, captions or both. A tool without a picture shows its caption in any case.
enum class ToolText { IconsOnly, BesideIcons, UnderIcons, TextOnly };

/// How all toolbars look.
struct BarLook {
    IconSize Icons = IconSize::Medium;
    ToolText Text = ToolText::IconsOnly;
    bool ToolTips = true;
    bool operator==(const BarLook&) const = default;
};

} // namespace tessa
