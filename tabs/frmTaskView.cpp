#include "tabs/frmTaskView.h"

#include "base/PlainText.h"
#include "downloads/DownloadWords.h"

#include <algorithm>
#include <utility>

namespace tessa {

namespace {

constexpr std::size_t kLongestTitle = 200;
constexpr std::size_t kLongestAddress = 300;

TextView StateOf(const PageLife* life, bool front) {
    if (!life) return u"Not loaded";
    if (life->Ended()) return u"Ended";
    if (life->Asleep()) return u"Asleep";
    if (life->ProcessPrints()) return u"Being printed";
    return front ? u"In front" : u"In the background";
}

class SystemMeter final : public ProcessMeter {
public:
    [[nodiscard]] std::optional<ProcessUse> Read(std::int64_t process) const override {
        return SystemProcessUse(process);
    }
    [[nodiscard]] std::chrono::milliseconds Now() const override {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
};

const SystemMeter kSystemMeter;

} // namespace

frmTaskView::frmTaskView(TabStrip& pcPage, ViewArray& Browser)
    : m_pcPage(pcPage), m_browser(Browser), m_meter(&kSystemMeter) {
    Form.Visible.Change.ConnectForLife([this] { Form_Change(); });
    lstTasks.ListIndex.Change.ConnectForLife([this] { ShowSelected(); });
    Order.Change.ConnectForLife([this] { Show(); });
    cmdGoTo.Click.ConnectForLife([this] { lstTasks_DblClick(); });
    cmdEnd.Click.ConnectForLife([this] { cmdEnd_Click(); });
    cmdClose.Click.ConnectForLife([this] { Form.Visible = false; });
}

void frmTaskView::Form_Change() {
    m_processes.clear();
    Refresh();
    const auto* front = m_pcPage.SelectedItem();
    if (front) lstTasks.Select(front->Key());
}

void frmTaskView::TellDrawing(DrawingWay way) {
    lblDrawing.Caption = Text(way == DrawingWay::Software ? u"Pages are drawn without the graphics processor."
                                                          : u"Pages are drawn with the graphics processor.");
}

void frmTaskView::Refresh() {
    if (!Form.Visible()) {
        lstTasks.Show({});
        return;
    }
    Measure();
    Show();
}

void frmTaskView::Measure() {
    const auto now = m_meter->Now();
    auto before = std::exchange(m_processes, {});
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) {
        const auto* life = open.Life();
        const std::int64_t process = life ? life->Process() : 0;
        if (const auto known = m_processes.find(process); known != m_processes.end()) {
            ++known->second.tabs;
            continue;
        }
        const auto use = process > 0 ? m_meter->Read(process) : std::nullopt;
        if (!use) continue;
        Measured measured{.use = *use, .time = now, .percent = {}, .tabs = 1};
        const auto old = before.find(process);
        if (old != before.end() && now > old->second.time)
            measured.percent = (use->Processor - old->second.use.Processor) * 100 / (now - old->second.time);
        else if (old != before.end())
            measured.percent = old->second.percent;
        m_processes.emplace(process, measured);
    }
}

PageLife* frmTaskView::LifeOf(TextView key) const {
    const auto* tab = m_pcPage.Find(key);
    auto* view = tab ? m_browser.Find(tab->Tag) : nullptr;
    return view ? view->Control->Life() : nullptr;
}

const frmTaskView::Measured* frmTaskView::MeasuredOf(const PageLife* life) const {
    const auto found = life ? m_processes.find(life->Process()) : m_processes.end();
    return found == m_processes.end() ? nullptr : &found->second;
}

frmTaskView::Row frmTaskView::RowOf(const OpenTab& open) const {
    const Tab& tab = open.Item;
    Row row;
    row.line.Key = tab.Key();
    auto& [title, address, state, memory, processor] = row.line.Cells;
    if (const auto* view = open.View) {
        title = PlainLine(view->Control->LocationName(), kLongestTitle);
        address = PlainLine(view->Control->LocationURL(), kLongestAddress);
    }
    if (title.empty()) title = PlainLine(tab.Title(), kLongestTitle);
    const auto* life = open.Life();
    state = StateOf(life, &tab == m_pcPage.SelectedItem());
    if (const auto* measured = MeasuredOf(life)) {
        row.memory = measured->use.Memory;
        row.percent = measured->percent.value_or(-1);
        memory = DownloadWords::Size(row.memory);
        if (measured->tabs > 1)
            memory += u", shared by " + Decimal(static_cast<std::int64_t>(measured->tabs)) + u" tabs";
        if (measured->percent) processor = Decimal(row.percent) + u" %";
    }
    return row;
}

void frmTaskView::Show() {
    if (!Form.Visible()) return;
    std::vector<Row> rows;
    for (const OpenTab open : OpenTabs(m_pcPage, m_browser)) rows.push_back(RowOf(open));
    const auto [column, descending] = Order();
    const auto before = [column = column](const Row& a, const Row& b) {
        if (column == TaskColumn::Memory) return a.memory < b.memory;
        if (column == TaskColumn::Processor) return a.percent < b.percent;
        return InSmallLetters(a.line.Cell(column)) < InSmallLetters(b.line.Cell(column));
    };
    // Equal ones keep the order of their tabs either way.
    std::ranges::stable_sort(rows, [&, descending = descending](const Row& a, const Row& b) {
        return descending ? before(b, a) : before(a, b);
    });
    std::vector<TaskLine> lines;
    for (Row& row : rows) lines.push_back(std::move(row.line));
    lstTasks.Show(std::move(lines));
    if (!lstTasks.FindSelected() && lstTasks.ListCount() > 0) lstTasks.ListIndex = 0;
    ShowSelected();
    ShowTotal();
}

Text frmTaskView::Selected() const {
    const TaskLine* line = lstTasks.FindSelected();
    return line ? line->Key : Text();
}

void frmTaskView::ShowSelected() {
    const auto* life = LifeOf(Selected());
    cmdGoTo.Enabled = m_pcPage.Find(Selected()) != nullptr;
    cmdEnd.Enabled = life && life->Process() > 0 && !life->ProcessPrints();
    const auto* measured = MeasuredOf(life);
    const bool shared = measured && measured->tabs > 1;
    lblShared.Caption =
        shared ? u"End Page ends all " + Decimal(static_cast<std::int64_t>(measured->tabs)) + u" pages of this process."
               : Text();
}

void frmTaskView::ShowTotal() {
    std::int64_t memory = 0;
    for (const auto& [process, measured] : m_processes) memory += measured.use.Memory;
    const auto counted = [](std::size_t count, TextView one, TextView many) {
        return Decimal(static_cast<std::int64_t>(count)) + u' ' + Text(count == 1 ? one : many);
    };
    lblTotal.Caption = counted(m_pcPage.Count(), u"tab", u"tabs") + u", " +
                       counted(m_processes.size(), u"process", u"processes") + u", " + DownloadWords::Size(memory);
}

void frmTaskView::SortBy(TaskColumn column) {
    // What is most is looked for first.
    const bool most = column == TaskColumn::Memory || column == TaskColumn::Processor;
    Order = TaskOrder{column, Order().Column == column ? !Order().Descending : most};
}

void frmTaskView::lstTasks_DblClick() {
    auto* tab = m_pcPage.Find(Selected());
    if (!tab) return;
    m_pcPage.Select(tab);
    ShowMainWindow();
    Refresh();
}

void frmTaskView::cmdEnd_Click() {
    if (auto* life = LifeOf(Selected())) ResumeNext(life->EndProcess());
    Refresh();
}

} // namespace tessa
