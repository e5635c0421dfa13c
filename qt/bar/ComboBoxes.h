#pragma once
#include "bar/CommandBar.h"

#include <QPointer>
#include <memory>
#include <unordered_map>
#include <vector>

class QWidget;

namespace tessa::qt {

class ComboBox;

/// The boxes of a command bar's combo tools. A tool has one on each toolbar that lists it, and all show the same.
class ComboBoxes {
public:
    /// The bar outlives it.
    explicit ComboBoxes(CommandBar& bar) : m_bar(bar) {}
    ComboBoxes(const ComboBoxes&) = delete;
    ComboBoxes& operator=(const ComboBoxes&) = delete;

    /// A new box, which its parent owns. Nothing for a tool that is no combo tool.
    ComboBox* Make(const std::shared_ptr<Tool>& tool, QWidget* parent);
    /// The first visible box of a tool, or the first of all. Nothing while no toolbar shows it.
    [[nodiscard]] ComboBox* Find(TextView tool) const;
    /// The boxes that there are.
    [[nodiscard]] std::vector<ComboBox*> All() const;

private:
    struct Shown {
        std::shared_ptr<Tool> tool;
        std::vector<QPointer<ComboBox>> boxes;
        Connections connections{};
    };

    void Attach(ComboTool& tool, Shown& shown);

    CommandBar& m_bar;
    std::unordered_map<Text, Shown> m_shown; ///< by the tool's name
};

} // namespace tessa::qt
