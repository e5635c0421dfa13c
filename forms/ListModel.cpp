#include "forms/ListModel.h"

namespace tessa {

Connection ListRows::Attach(Signal<void(RowChange)>::Listener view) {
    view({RowChange::Kind::All, 0});
    return m_view.Connect(std::move(view));
}

void ListRows::ReportMiddle(std::size_t first, std::size_t before, std::size_t after) const {
    for (std::size_t i = before; i > after; --i) Report(RowChange::Kind::Removed, first + i - 1);
    for (std::size_t i = before; i < after; ++i) Report(RowChange::Kind::Inserted, first + i);
}

} // namespace tessa
