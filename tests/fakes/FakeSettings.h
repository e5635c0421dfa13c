#pragma once
#include "platform/SettingsStorage.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tessa {

/// Settings in memory. "Processes" that share one object see each other's values as real ones do. An opened storage
/// knows what was released before it was opened, plus what it wrote itself. Its own writes reach the others when it is
/// released.
class FakeSettings : public SettingsStorageFactory {
public:
    using Values = std::map<Text, std::vector<Text>, std::less<>>;

    std::unique_ptr<SettingsStorage> Open() override;

    /// A text as a process of another time left it.
    void Put(TextView name, TextView value) { texts[Text(name)] = {Text(value)}; }
    void PutList(TextView name, std::vector<Text> values) { lists[Text(name)] = std::move(values); }
    /// The stored text; "(none)" when there is none.
    [[nodiscard]] Text Stored(TextView name) const;
    /// The stored entries, each in square brackets; "(none)" when no list was stored.
    [[nodiscard]] Text StoredList(TextView name) const;

    Values texts;                       ///< released texts by name, one entry each
    Values lists;                       ///< released lists by name
    std::set<Text, std::less<>> refuse; ///< names whose writes fail
    bool refuseAll = false;             ///< every write fails
    std::function<void()> afterOpen;    ///< what another process does once, right after the next storage was opened
    std::vector<Text> written;          ///< names of all writes in order, the refused ones too
    int opened = 0;                     ///< how many storages were opened
    int open = 0;                       ///< how many of them are not released yet

private:
    class Storage;
};

class FakeSettings::Storage : public SettingsStorage {
public:
    explicit Storage(FakeSettings& owner) : m_owner(owner), m_texts(owner.texts), m_lists(owner.lists) {
        ++m_owner.opened;
        ++m_owner.open;
    }

    ~Storage() override {
        --m_owner.open;
        for (const Text& name : m_changedTexts) m_owner.texts[name] = m_texts[name];
        for (const Text& name : m_changedLists) m_owner.lists[name] = m_lists[name];
        for (const auto& [name, change] : m_listChanges) m_owner.lists[name] = change(m_owner.lists[name]);
    }

    std::optional<Text> Read(TextView name) const override {
        const auto found = m_texts.find(name);
        return found == m_texts.end() ? std::nullopt : std::optional(found->second.front());
    }

    std::optional<std::vector<Text>> ReadList(TextView name) const override {
        const auto found = m_lists.find(name);
        return found == m_lists.end() ? std::nullopt : std::optional(found->second);
    }

    Outcome Write(TextView name, TextView value) override {
        if (!Takes(name)) return Outcome::Failed;
        m_texts[Text(name)] = {Text(value)};
        m_changedTexts.insert(Text(name));
        return Outcome::Done;
    }

    Outcome WriteList(TextView name, const std::vector<Text>& values) override {
        if (!Takes(name)) return Outcome::Failed;
        m_lists[Text(name)] = values;
        m_changedLists.insert(Text(name));
        return Outcome::Done;
    }

    Outcome ChangeList(TextView name, ListChange change) override {
        if (!Takes(name)) return Outcome::Failed;
        m_lists[Text(name)] = change(m_lists[Text(name)]);
        m_listChanges.emplace_back(name, std::move(change));
        return Outcome::Done;
    }

private:
    bool Takes(TextView name) {
        m_owner.written.emplace_back(name);
        return !m_owner.refuseAll && !m_owner.refuse.contains(name);
    }

    FakeSettings& m_owner;
    FakeSettings::Values m_texts;
    FakeSettings::Values m_lists;
    std::set<Text> m_changedTexts;
    std::set<Text> m_changedLists;
    std::vector<std::pair<Text, ListChange>> m_listChanges;
};

inline std::unique_ptr<SettingsStorage> FakeSettings::Open() {
    auto storage = std::make_unique<Storage>(*this);
    if (const auto other = std::exchange(afterOpen, {})) other();
    return storage;
}

inline Text FakeSettings::Stored(TextView name) const {
    const auto found = texts.find(name);
    return found == texts.end() ? u"(none)" : found->second.front();
}

inline Text FakeSettings::StoredList(TextView name) const {
    const auto found = lists.find(name);
    if (found == lists.end()) return u"(none)";
    Text all;
    for (const Text& value : found->second) all += u"[" + value + u"]";
    return all;
}

} // namespace tessa
