#include "tiles/TileText.h"

#include <set>

namespace tessa {

namespace {

constexpr TextView kFullWord = u"full", kLinkedWord = u"linked";

void Print(const TilePart& part, Text& text) {
    if (part.What == TilePart::Kind::Pane) {
        text += Decimal(part.Number);
    } else {
        text += part.What == TilePart::Kind::Row ? u"h(" : u"v(";
        for (std::size_t i = 0; i < part.Parts.size(); ++i) {
            if (i > 0) text += u' ';
            Print(part.Parts[i], text);
        }
        text += u')';
    }
    if (part.Weight != TilePart::kUsualWeight) text += u':' + Decimal(part.Weight);
}

/// Reads a layout from its beginning to its end.
class TileReader {
public:
    explicit TileReader(TextView text) : m_rest(text) {}

    std::optional<TileLayout> Read() {
        auto root = ReadPart(1);
        // A weight says nothing where there is nothing to share with.
        if (!root || root->What == TilePart::Kind::Pane || root->Weight != TilePart::kUsualWeight) return std::nullopt;
        TileLayout layout{.Root = *std::move(root)};
        layout.Full = TakeWord(kFullWord);
        layout.Linked = TakeWord(kLinkedWord);
        SkipBlanks();
        if (!m_rest.empty()) return std::nullopt;
        return layout;
    }

private:
    void SkipBlanks() {
        while (m_rest.starts_with(u' ')) m_rest.remove_prefix(1);
    }
    bool Take(char16_t unit) {
        SkipBlanks();
        if (!m_rest.starts_with(unit)) return false;
        m_rest.remove_prefix(1);
        return true;
    }
    bool TakeWord(TextView word) {
        SkipBlanks();
        if (!m_rest.starts_with(word)) return false;
        m_rest.remove_prefix(word.size());
        return true;
    }
    /// From 1 to `most`, else 0.
    std::int32_t TakeNumber(std::int32_t most) {
        SkipBlanks();
        std::int32_t number = 0;
        while (!m_rest.empty() && m_rest.front() >= u'0' && m_rest.front() <= u'9') {
            number = number * 10 + (m_rest.front() - u'0');
            if (number > most) return 0;
            m_rest.remove_prefix(1);
        }
        return number;
    }

    std::optional<TilePart> ReadPart(std::size_t depth) {
        std::optional<TilePart> part;
        const bool row = TakeWord(u"h(");
        if (row || TakeWord(u"v(")) {
            part = ReadParts(row ? TilePart::Kind::Row : TilePart::Kind::Column, depth);
        } else {
            part = ReadPane();
        }
        if (!part || !Take(u':')) return part;
        part->Weight = TakeNumber(TilePart::kMostWeight);
        if (part->Weight == 0) return std::nullopt;
        return part;
    }

    std::optional<TilePart> ReadPane() {
        const std::int32_t number = TakeNumber(TileLayout::kMostNumber);
        if (number == 0 || m_seen.size() == TileLayout::kMostPanes || !m_seen.insert(number).second)
            return std::nullopt;
        return TilePart{.What = TilePart::Kind::Pane, .Number = number};
    }

    std::optional<TilePart> ReadParts(TilePart::Kind kind, std::size_t depth) {
        if (depth > TileLayout::kMostDepth) return std::nullopt;
        TilePart part{.What = kind};
        while (!Take(u')')) {
            auto each = ReadPart(depth + 1);
            if (!each) return std::nullopt;
            part.Parts.push_back(*std::move(each));
        }
        if (part.Parts.size() < 2) return std::nullopt;
        return part;
    }

    TextView m_rest;
    std::set<std::int32_t> m_seen;
};

} // namespace

Text TileText(const TileLayout& layout) {
    Text text;
    Print(layout.Root, text);
    if (layout.Full) text += u' ' + Text(kFullWord);
    if (layout.Linked) text += u' ' + Text(kLinkedWord);
    return text;
}

std::optional<TileLayout> TileLayoutIn(TextView text) { return TileReader(text).Read(); }

std::vector<Text> TileTextsBecome(const std::vector<Text>& texts,
                                  const std::function<std::int32_t(std::int32_t)>& become) {
    std::vector<Text> all;
    for (const Text& text : texts) {
        const auto read = TileLayoutIn(text);
        const auto layout = read ? TileLayouts::Renumbered(*read, become) : std::nullopt;
        if (layout) all.push_back(TileText(*layout));
    }
    return all;
}

} // namespace tessa
