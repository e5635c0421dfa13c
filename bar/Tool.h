#pragma once
#include "bar/ToolSource.h"
#include "base/Property.h"
#include "base/Text.h"
#include "base/Units.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tessa {

/// The name of a picture; the desktop's icon theme knows what it looks like. Empty for none.
struct Picture {
    Text Name;
    bool operator==(const Picture&) const = default;
};

/// What a tool is on a bar: something to click, a text beside other tools, or a text box.
enum class ToolKind { Button, Label, Combo };

/// One entry of the command bar, one object however many bands show it. The name is the command; that of a tool laid
/// out by design is unique within the bar. Owned by the bar or by the one band that it was made for.
class Tool {
public:
    Tool(std::int32_t id, Text name, Text caption = {}, ToolKind kind = ToolKind::Button)
        : Caption(std::move(caption)), m_id(id), m_name(std::move(name)), m_kind(kind) {}
    /// One that is made while the program runs.
    Tool(ToolSource source, std::int32_t id, Text name, Text caption = {})
        : Caption(std::move(caption)),
          m_id(id),
          m_name(std::move(name)),
          m_kind(ToolKind::Button),
          m_source(std::move(source)) {}
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;
    virtual ~Tool() = default;

    /// Its number: below 1000 by design, and in a range of their own for run-time tools. Nothing is decided by it.
    [[nodiscard]] std::int32_t Id() const { return m_id; }
    /// That of a run-time tool may repeat another's: it may be an address.
    [[nodiscard]] const Text& Name() const { return m_name; }
    [[nodiscard]] const ToolSource& Source() const { return m_source; }
    /// What it is made from, when that is of this kind.
    template<typename Kind>
    [[nodiscard]] const Kind* From() const {
        return std::get_if<Kind>(&m_source);
    }
    /// Whether it was made while the program runs: it belongs to its menu and is not arranged or kept.
    [[nodiscard]] bool IsRunTime() const { return !From<MadeFrom::Design>(); }
    [[nodiscard]] ToolKind Kind() const { return m_kind; }

    /// "&" stands before the access key, "&&" for one "&".
    Property<Text> Caption;
    Property<bool> Enabled{true};
    Property<bool> Checked{false};
    Property<bool> Visible{true};
    /// A number shown on the picture; 0 for none.
    Property<std::size_t> Badge{0};
    Text TooltipText;
    /// The menu that the tool was designed for; empty for a tool that is not to be arranged.
    Text Category;
    /// Help shown in the status bar; of a link its keyword or address, of a TessaGroup its file.
    Text Description;
    Picture Image;
    /// The band that opens as the tool's drop-down menu; empty for none.
    Text SubBand;
    /// A drop-down tool whose own click is a command too.
    bool ClickWithSubBand = false;

private:
    std::int32_t m_id;
    Text m_name;
    ToolKind m_kind;
    ToolSource m_source;
};

/// Which part of a box's text is selected, in UTF-16 units. Its end is where the caret stands.
struct TextSelection {
    std::size_t Start = 0;
    std::size_t Length = 0;
    bool operator==(const TextSelection&) const = default;
};

/// A picture inside a box, before its text, and what it means. It is the sign of one text and never stands beside
/// another. Without a meaning there is none.
struct BoxSign {
    Picture Image;
    Text Meaning;
    Text Of{};              ///< the text that it is the sign of
    bool Waiting = false;   ///< what the text names is not there yet
    TextSelection Weight{}; ///< the part of the text that tells most
    bool operator==(const BoxSign&) const = default;
};

/// A box with an editable text and a drop-down list of texts, indexed from 0.
class ComboTool final : public Tool {
public:
    ComboTool(std::int32_t id, Text name, Text caption = {})
        : Tool(id, std::move(name), std::move(caption), ToolKind::Combo) {
        Width.Change.ConnectForLife([this] { FillsRow = FillsRow() && m_measuring; });
    }

    /// The text that the box shows.
    Property<Text> Value;
    /// What is selected in it; follows the user's caret. Set it after `Value`.
    Property<TextSelection> Selection;
    Property<std::vector<Text>> List;
    /// Set by `ShowSigned`, together with its text.
    Property<BoxSign> Sign;
    /// Never below 0.
    Property<Pixels> Width{Pixels{240}};
    /// The box takes what its row leaves, and `Width` says how much that is. Ends when a width is set.
    Property<bool> FillsRow{false};
    /// Shows a text with its sign, which is from now on the sign of that text.
    void ShowSigned(Text text, BoxSign sign);
    /// What stands beside a text in the box: its sign. Beside any other text, which the user may be typing, stands a
    /// sign that says no more than that.
    [[nodiscard]] BoxSign SignBeside(TextView text) const;
    /// The view tells how wide a box that fills its row is on the screen.
    void Measure(Pixels width);

    [[nodiscard]] std::size_t ListCount() const { return List().size(); }
    /// Inserts before all others.
    void InsertFirst(Text item);
    /// An index that is none removes nothing.
    void RemoveItem(std::size_t index);
    void Clear() { List = std::vector<Text>(); }

private:
    bool m_measuring = false;
};

} // namespace tessa
