#pragma once
#include "qt/script/TabWalk.h"

#include <QObject>
#include <QTimer>
#include <list>
#include <memory>
#include <vector>

namespace tessa::qt {

class Engine;

/// Goes from address to address: loads each page in a view that no tab shows, and has something done with it. Of each
/// walk one page at a time is there. So memory stays as it is, however many there are.
class AddressWalk final : public QObject {
public:
    /// Both outlive it. A page that has not loaded in so many milliseconds is taken as it is by then.
    AddressWalk(Engine& engine, PageReads& reads, int patience = 60000);
    ~AddressWalk() override;

    /// What does not load, or asks its user something, is left out.
    void Go(std::vector<Text> addresses, PageSteps steps);
    /// No page is left afterwards, and nobody is told anything. Before the engine ends.
    void Shutdown();

private:
    class Page;
    struct Walk;
    using Walks = std::list<std::unique_ptr<Walk>>;

    void Next(Walk& walk);
    void Look(Walk& walk);
    void Visit(Walk& walk);
    void LeaveOut(Walk& walk);
    void Leave(Walk& walk);
    void End(Walk& walk);
    [[nodiscard]] std::int16_t FreeIndex() const;

    Engine& m_engine;
    PageReads& m_reads;
    const int m_patience;
    Walks m_walks;
};

} // namespace tessa::qt
