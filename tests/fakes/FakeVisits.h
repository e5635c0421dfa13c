#pragma once
#include "platform/VisitStore.h"

#include <functional>
#include <map>
#include <vector>

namespace tessa {

/// A store in memory. It answers at once, or when the test says so.
class FakeVisits final : public VisitStore {
public:
    void Keep(HistoryVisit visit) override;
    void Find(const HistoryQuery& query, std::function<void(HistoryFound)> answer) override;
    void Load(std::vector<Text> addresses, std::function<void(std::vector<HistoryEntry>)> answer) override;
    void Look(std::function<void(HistoryOverview)> answer) override;
    void Remove(HistoryRemoval removal, std::function<void(std::int64_t)> done) override;
    void Limit(std::int32_t days, std::int32_t megabytes) override {
        limits += std::to_string(days) + "/" + std::to_string(megabytes) + " ";
    }
    [[nodiscard]] bool Works() const override { return true; }

    /// Gives the answers that wait.
    void Answer();
    /// The entry of that address; the test fails without one.
    HistoryEntry& At(TextView address);
    /// The addresses, in the order of their last visits: "http://b/ http://a/".
    [[nodiscard]] Text Addresses() const;

    bool slow = false; ///< answers wait
    std::vector<std::function<void()>> waiting;
    std::vector<HistoryEntry> entries; ///< the last visit at the end
    std::vector<HistoryVisit> kept;    ///< as they were told
    std::vector<HistoryQuery> queries;
    HistoryOverview overview;
    std::string limits;

private:
    void Give(std::function<void()> answer);
    std::int64_t m_highest = 0;
};

} // namespace tessa
