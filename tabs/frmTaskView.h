#pragma once
#include "base/Signal.h"
#include "base/os/ProcessUse.h"
#include "forms/Controls.h"
#include "forms/ListModel.h"
#include "forms/TabStrip.h"
#include "settings/Drawing.h"
#include "tabs/OpenTabs.h"

#include <array>
#include <chrono>
#include <map>
#include <vector>

namespace tessa {

enum class TaskColumn { Title, Address, State, Memory, Processor };

/// A line of the task view: a tab, with a cell for each column.
struct TaskLine {
    Text Key; ///< of the tab
    std::array<Text, 5> Cells;

    [[nodiscard]] const Text& Cell(TaskColumn column) const { return Cells.at(static_cast<std::size_t>(column)); }
    friend bool operator==(const TaskLine&, const TaskLine&) = default;
};

/// How the lines are sorted.
struct TaskOrder {
    TaskColumn Column = TaskColumn::Memory;
    bool Descending = true;
    friend bool operator==(const TaskOrder&, const TaskOrder&) = default;
};

/// What processes use, and when.
class ProcessMeter {
public:
    virtual ~ProcessMeter() = default;

    /// Nothing where the system does not tell.
    [[nodiscard]] virtual std::optional<ProcessUse> Read(std::int64_t process) const = 0;
    /// The present time on a steady clock.
    [[nodiscard]] virtual std::chrono::milliseconds Now() const = 0;
};

/// The task view, as data: what each tab does and what the process of its page uses. Nothing is measured while it is
/// hidden, and it remembers nothing but how it was sorted.
class frmTaskView {
public:
    /// Both outlive the form.
    frmTaskView(TabStrip& pcPage, ViewArray& Browser);
    frmTaskView(const frmTaskView&) = delete;
    frmTaskView& operator=(const frmTaskView&) = delete;

    FormState Form;
    Text Caption = u"Task View";
    static constexpr std::array<TextView, 5> kHeadings{u"Title", u"Address", u"State", u"Memory", u"Processor"};
    ListModel<TaskLine, &TaskLine::Key> lstTasks;
    Property<TaskOrder> Order;
    Label lblShared{u""}; ///< who else would end with the selected page
    Label lblTotal{u""};
    Label lblDrawing{u""};
    Button cmdGoTo{u"&Go to Tab"};
    Button cmdEnd{u"&End Page"};
    Button cmdClose{u"Close"};

    /// Says how pages are drawn; once, before the form is shown.
    void TellDrawing(DrawingWay way);
    /// Measures and shows again; called about once a second while the form is shown.
    void Refresh();
    /// Sorts by that column; the other way round when it is sorted by it already.
    void SortBy(TaskColumn column);
    /// Return, or a double click, on the selected line: brings its tab to the front.
    void lstTasks_DblClick();

    /// From now on processes are measured by that meter, which outlives the form; by the system's own until then.
    void MeasureBy(const ProcessMeter& meter) { m_meter = &meter; }
    /// Brings the main window to the front, or this one.
    Signal<void()> ShowMainWindow;
    Signal<void()> ShowItself;

private:
    /// What is known of a process.
    struct Measured {
        ProcessUse use;
        std::chrono::milliseconds time{0};
        std::optional<std::int64_t> percent; ///< of one processor, since it was last measured
        std::size_t tabs = 0;
    };
    struct Row {
        TaskLine line;
        std::int64_t process = 0, memory = -1, percent = -1;
    };
    void Form_Change();
    void cmdEnd_Click();
    void Measure();
    void Show();
    /// The key of the selected line's tab; empty for none.
    [[nodiscard]] Text Selected() const;
    void ShowSelected();
    void ShowTotal();
    [[nodiscard]] Row RowOf(const OpenTab& open) const;
    [[nodiscard]] PageLife* LifeOf(TextView key) const;
    [[nodiscard]] const Measured* MeasuredOf(const PageLife* life) const;

    TabStrip& m_pcPage;
    ViewArray& m_browser;
    const ProcessMeter* m_meter;
    std::map<std::int64_t, Measured> m_processes;
};

} // namespace tessa
