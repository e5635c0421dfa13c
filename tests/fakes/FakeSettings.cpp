#include "tests/fakes/FakeSettings.h"

namespace {

class FakeStorage : public SettingsStorage {
public:
    explicit FakeStorage(FakeSettings& owner) : m_owner(owner), m_texts(owner.texts), m_lists(owner.lists) {
        ++m_owner.opened;
        ++m_owner.open;
    }

    ~FakeStorage() override {
        --m_owner.open;
        for (const Text& name : m_changedTexts) m_owner.texts[name] = m_texts[name];
        for (const Text& name : m_changedLists) m_owner.lists[name] = m_lists[name];
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
};

} // namespace

std::unique_ptr<SettingsStorage> FakeSettings::Open() { return std::make_unique<FakeStorage>(*this); }

Text FakeSettings::Stored(TextView name) const {
    const auto found = texts.find(name);
    return found == texts.end() ? u"(none)" : found->second.front();
}

Text FakeSettings::StoredList(TextView name) const {
    const auto found = lists.find(name);
    if (found == lists.end()) return u"(none)";
    Text all;
    for (const Text& value : found->second) all += u"[" + value + u"]";
    return all;
}
