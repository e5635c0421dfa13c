#include "tabs/frmTaskView.h"

#include "tests/Desk.h"
#include "tests/fakes/FakeProcesses.h"

namespace tessa {

using namespace std::chrono_literals;

namespace {

/// A user with three tabs and the task view; the processes are made up.
class TaskView : public testing::Test {
protected:
    TaskView() {
        desk.StartWithTabs(3);
        Page(1, u"News", u"http://news.example/", 11);
        Page(2, u"Weather", u"http://weather.example/", 12);
        Page(3, u"apples", u"http://apples.example/", 13);
        Uses(11, 80'000'000, 0ms);
        Uses(12, 120'000'000, 0ms);
        Uses(13, 40'000'000, 0ms);
        form.MeasureBy(meter);
        form.ShowMainWindow.ConnectForLife([this] { ++mainShown; });
    }
    void Page(int index, TextView name, TextView address, std::int64_t process) {
        auto& view = desk.views.At(index);
        view.name = name;
        view.location = address;
        view.process = process;
    }
    void Uses(std::int64_t process, std::int64_t memory, std::chrono::milliseconds processor) {
        processes[process] = {memory, processor};
    }
    void Open() { desk.Click(u"xtrTaskView"); }
    /// A column of all lines, "|" between them.
    [[nodiscard]] std::string Column(TaskColumn column) const {
        std::string all;
        for (const TaskLine& line : form.lstTasks.Rows()) all += "|" + ToUtf8(line.Cell(column));
        return all.empty() ? all : all.substr(1);
    }

    Desk desk;
    frmTaskView& form = desk.main.TaskView();
    FakeProcesses meter;
    std::map<std::int64_t, ProcessUse>& processes = meter.processes;
    std::chrono::milliseconds& now = meter.now;
    int& reads = meter.reads;
    int mainShown = 0;
};

TEST_F(TaskView, SaysHowPagesAreDrawn) {
    form.TellDrawing(DrawingWay::Software);
    EXPECT_EQ(form.lblDrawing.Caption(), u"Pages are drawn without the graphics processor.");
    form.TellDrawing(DrawingWay::Graphics);
    EXPECT_EQ(form.lblDrawing.Caption(), u"Pages are drawn with the graphics processor.");
}

TEST_F(TaskView, ShowsWhatEachTabUsesTheMostFirst) {
    Open();
    EXPECT_EQ(Column(TaskColumn::Title), "Weather|News|apples");
    EXPECT_EQ(Column(TaskColumn::Address), "http://weather.example/|http://news.example/|http://apples.example/");
    EXPECT_EQ(Column(TaskColumn::State), "In the background|In front|In the background");
    EXPECT_EQ(Column(TaskColumn::Memory), "120 MB|80 MB|40 MB");
    EXPECT_EQ(Column(TaskColumn::Processor), "||");
    EXPECT_EQ(form.lblTotal.Caption(), u"3 tabs, 3 processes, 240 MB");
    EXPECT_EQ(form.lstTasks.FindSelected()->Key, u"Tab1");
}

TEST_F(TaskView, MeasuresNothingWhileItIsHidden) {
    form.Refresh();
    EXPECT_EQ(reads, 0);
    Open();
    EXPECT_EQ(reads, 3);
    form.cmdClose.Click();
    form.Refresh();
    EXPECT_EQ(reads, 3);
    EXPECT_TRUE(form.lstTasks.Rows().empty());
}

TEST_F(TaskView, TheProcessorIsThatOfTheTimeSinceItWasLastMeasured) {
    Open();
    now += 1s;
    Uses(11, 80'000'000, 500ms);
    Uses(12, 120'000'000, 1900ms);
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::Processor), "190 %|50 %|0 %");
    // Asked twice in one moment, it has not become less.
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::Processor), "190 %|50 %|0 %");
    now += 2s;
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::Processor), "0 %|0 %|0 %");
}

TEST_F(TaskView, ANewProcessOfATabIsMeasuredFromItsOwnBeginning) {
    Open();
    now += 1s;
    desk.views.At(1).process = 21;
    Uses(21, 10'000'000, 90s);
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::Processor), "0 %|0 %|");
}

TEST_F(TaskView, TabsThatShareAProcessSaySo) {
    desk.views.At(3).process = 12;
    Open();
    EXPECT_EQ(Column(TaskColumn::Memory), "120 MB, shared by 2 tabs|120 MB, shared by 2 tabs|80 MB");
    EXPECT_EQ(form.lblTotal.Caption(), u"3 tabs, 2 processes, 200 MB");
    EXPECT_EQ(form.lblShared.Caption(), u"");
    form.lstTasks.Select(TextView(u"Tab3"));
    EXPECT_EQ(form.lblShared.Caption(), u"End Page ends all 2 pages of this process.");
    EXPECT_EQ(reads, 2);
}

TEST_F(TaskView, ShowsTabsThatSleepThatEndedAndThatHaveNoPage) {
    desk.views.At(1).hasLife = false;
    desk.views.At(2).asleep = true;
    desk.views.At(3).ended = true;
    desk.views.At(3).process = 0;
    Open();
    EXPECT_EQ(Column(TaskColumn::State), "Not loaded|Asleep|Ended");
    EXPECT_EQ(Column(TaskColumn::Memory), "||");
    EXPECT_FALSE(form.cmdEnd.Enabled());
    EXPECT_EQ(form.lblTotal.Caption(), u"3 tabs, 0 processes, 0 bytes");
}

TEST_F(TaskView, AProcessThatCannotBeReadLeavesItsCellsEmpty) {
    processes.erase(12);
    Open();
    EXPECT_EQ(Column(TaskColumn::Title), "News|apples|Weather");
    EXPECT_EQ(Column(TaskColumn::Memory), "80 MB|40 MB|");
    form.lstTasks.Select(TextView(u"Tab2"));
    EXPECT_TRUE(form.cmdEnd.Enabled());
}

TEST_F(TaskView, SortsByAnyColumnAndTheOtherWayRound) {
    Open();
    form.SortBy(TaskColumn::Title);
    EXPECT_EQ(Column(TaskColumn::Title), "apples|News|Weather");
    form.SortBy(TaskColumn::Title);
    EXPECT_EQ(Column(TaskColumn::Title), "Weather|News|apples");
    form.SortBy(TaskColumn::Address);
    EXPECT_EQ(Column(TaskColumn::Title), "apples|News|Weather");
    form.SortBy(TaskColumn::State);
    EXPECT_EQ(Column(TaskColumn::Title), "News|Weather|apples");
    form.SortBy(TaskColumn::Memory);
    EXPECT_EQ(Column(TaskColumn::Title), "Weather|News|apples");
    form.SortBy(TaskColumn::Memory);
    EXPECT_EQ(Column(TaskColumn::Title), "apples|News|Weather");
    now += 1s;
    Uses(13, 40'000'000, 10ms);
    form.Refresh();
    form.SortBy(TaskColumn::Processor);
    EXPECT_EQ(Column(TaskColumn::Title), "apples|News|Weather");
}

TEST_F(TaskView, MemoryIsSortedAsANumber) {
    Uses(11, 900'000, 0ms);
    Uses(12, 1'200'000'000, 0ms);
    Open();
    EXPECT_EQ(Column(TaskColumn::Memory), "1.2 GB|40 MB|900 kB");
}

TEST_F(TaskView, TheSelectionStaysWithItsTab) {
    Open();
    form.lstTasks.Select(TextView(u"Tab3"));
    Uses(13, 900'000'000, 0ms);
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::Title), "apples|Weather|News");
    EXPECT_EQ(form.lstTasks.FindSelected()->Key, u"Tab3");
    desk.Close(3);
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::Title), "Weather|News");
    EXPECT_EQ(form.lstTasks.FindSelected()->Key, u"Tab2");
}

TEST_F(TaskView, GoesToTheTab) {
    Open();
    form.lstTasks.Select(TextView(u"Tab3"));
    form.lstTasks_DblClick();
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(mainShown, 1);
    EXPECT_EQ(Column(TaskColumn::State), "In the background|In the background|In front");
    EXPECT_TRUE(form.Form.Visible());
    form.cmdGoTo.Click();
    EXPECT_EQ(desk.Strip(), "1 2 [3*]");
    EXPECT_EQ(mainShown, 2);
}

TEST_F(TaskView, EndsTheProcessOfTheSelectedTab) {
    Open();
    form.lstTasks.Select(TextView(u"Tab2"));
    form.cmdEnd.Click();
    EXPECT_EQ(desk.views.Calls(2).find("end") != std::string::npos, true);
    EXPECT_EQ(Column(TaskColumn::Title), "News|apples|Weather");
    EXPECT_EQ(Column(TaskColumn::State), "In front|In the background|Ended");
    EXPECT_FALSE(form.cmdEnd.Enabled());
    EXPECT_EQ(desk.Strip(), "[1*] 2 3");
}

TEST_F(TaskView, AProcessWhosePageIsBeingPrintedCannotBeEnded) {
    desk.views.At(2).prints = true;
    Open();
    EXPECT_EQ(Column(TaskColumn::State), "Being printed|In front|In the background");
    form.lstTasks.Select(TextView(u"Tab2"));
    EXPECT_FALSE(form.cmdEnd.Enabled());
    desk.views.At(2).prints = false;
    form.Refresh();
    EXPECT_EQ(Column(TaskColumn::State), "In the background|In front|In the background");
    EXPECT_TRUE(form.cmdEnd.Enabled());
}

TEST_F(TaskView, AProcessThatCannotBeEndedStays) {
    Open();
    desk.views.At(1).refuses = true;
    desk.ExpectSkipped(1);
    form.cmdEnd.Click();
    EXPECT_EQ(Column(TaskColumn::State), "In the background|In front|In the background");
}

TEST_F(TaskView, WhatAPageCallsItselfIsOneReadableLine) {
    desk.views.At(1).name = u"two\nlines \u202Eturned" + Text(5000, u'x');
    Open();
    const Text title = form.lstTasks.Rows().at(1).Cell(TaskColumn::Title);
    EXPECT_TRUE(title.starts_with(u"two lines turned"));
    EXPECT_LT(title.size(), 250u);
}

TEST_F(TaskView, ATabWithoutATitleIsCalledAsItsCaption) {
    desk.views.At(1).name.clear();
    Open();
    EXPECT_EQ(Column(TaskColumn::Title), "Weather|1|apples");
}

TEST_F(TaskView, IsHiddenWhenTheWindowEnds) {
    Open();
    desk.Unload();
    EXPECT_FALSE(form.Form.Visible());
    form.Refresh();
}

TEST_F(TaskView, OpenedTwiceItComesToTheFront) {
    int shown = 0;
    form.ShowItself.ConnectForLife([&] { ++shown; });
    Open();
    Open();
    EXPECT_EQ(shown, 2);
}

} // namespace

} // namespace tessa
