#pragma once
#include "common/Property.h"
#include "common/Text.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

/// One entry of the command bar, however many menus and toolbars show it. Its name is unique and never changes.
class Tool {
public:
    explicit Tool(Text name, Text caption) : Caption(std::move(caption)), m_name(std::move(name)) {}
    virtual ~Tool() = default;
    [[nodiscard]] const Text& Name() const { return m_name; }

    Property<Text> Caption;
    Property<bool> Enabled{true};
    Property<bool> Checked{false};

private:
    Text m_name;
};

/// An entry with an editable text.
class ComboTool : public Tool {
public:
    using Tool::Tool;
    /// The text that the box shows.
    Property<Text> Value;
};

/// The tools of the main window. A click on any of them, wherever it is shown, reaches `Click`.
class CommandBar {
public:
    /// Adds a tool; a name in use is a mistake of ours. The bar owns the tool for as long as it lives.
    template<typename T = Tool>
    T* Add(Text name, Text caption) {
        auto tool = std::make_unique<T>(std::move(name), std::move(caption));
        T* added = tool.get();
        Keep(std::move(tool));
        return added;
    }

    [[nodiscard]] Tool* Find(TextView name) const;
    [[nodiscard]] ComboTool* FindCombo(TextView name) const;
    [[nodiscard]] const std::vector<std::unique_ptr<Tool>>& Tools() const { return m_tools; }

    std::function<void(Tool&)> Click;

private:
    void Keep(std::unique_ptr<Tool> tool);

    std::vector<std::unique_ptr<Tool>> m_tools;
    std::unordered_map<Text, Tool*> m_byName;
};
