#pragma once
#include "tests/Desk.h"

namespace tessa {

/// A user who reads pages: each test tells what they say.
class ReadingDesk : public Desk {
public:
    explicit ReadingDesk(int tabs = 1) {
        clock.now = 1'795'000'000;
        steady.now = ReadPages::Time{1'000'000};
        StartWithTabs(tabs);
    }

    /// The page loads and is left in peace: "pOne|hTwo" are its passages.
    void Read(int index, TextView address, TextView passages) {
        Load(index, address, passages);
        Rest();
    }
    void Load(int index, TextView address, TextView passages) {
        // What was there is read as it was.
        PageBegins(index, address);
        Say(index, passages);
        PageLoads(index, address, u"Title of " + Text(address));
    }
    /// The page says something else from now on.
    void Say(int index, TextView passages) {
        Text lines(passages);
        std::ranges::replace(lines, u'|', u'\n');
        views.At(index).text = lines;
    }
    void Rest() {
        steady.now += ReadPages::kRest;
        main.Reads().Look();
    }
    /// What is said of the news of each tab: "1:? 2:new 3:same".
    std::string News() {
        std::string all;
        for (std::size_t position = 1; position <= CountTabs(); ++position) {
            const Tab& tab = TabAt(position);
            all += (all.empty() ? "" : " ") + std::to_string(tab.Tag) + ":" +
                   (tab.News() == TabNews::New       ? "new"
                    : tab.News() == TabNews::Nothing ? "same"
                                                     : "?");
        }
        return all;
    }
    /// The passages that are marked in a page, the one in sight in brackets.
    std::string Marked(int index) {
        std::string all;
        const FakeView& view = views.At(index);
        for (std::size_t i = 0; i < view.shownPassages.size(); ++i) {
            const std::string words = ToUtf8(view.shownPassages[i]);
            all += (all.empty() ? "" : " ") + (i == view.firstPassage ? "[" + words + "]" : words);
        }
        return all;
    }
};

} // namespace tessa
