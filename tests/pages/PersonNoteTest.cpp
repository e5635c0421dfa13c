#include "pages/PersonNote.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

using std::chrono::milliseconds;

class PersonNoteTest : public testing::Test {
protected:
    PersonNoteTest() {
        note.Now = [this] { return now; };
    }

    PersonNote::Clock::time_point now{std::chrono::hours(1)};
    PersonNote note;
};

TEST_F(PersonNoteTest, NobodyHasActedBeforeSomebodyDoes) { EXPECT_FALSE(note.Take()); }

TEST_F(PersonNoteTest, ItIsGoodForOneThing) {
    note.Make();
    note.Make();
    EXPECT_TRUE(note.Take());
    EXPECT_FALSE(note.Take());
}

TEST_F(PersonNoteTest, AfterFiveSecondsItIsGoodForNothing) {
    note.Make();
    now += milliseconds(4999);
    EXPECT_TRUE(note.Take());
    note.Make();
    now += milliseconds(5000);
    EXPECT_FALSE(note.Take());
    now -= milliseconds(5000);
    EXPECT_FALSE(note.Take()) << "what has expired is gone";
}

TEST_F(PersonNoteTest, ALaterActCountsFromItsOwnTime) {
    note.Make();
    now += milliseconds(4000);
    note.Make();
    now += milliseconds(4000);
    EXPECT_TRUE(note.Take());
}

} // namespace

} // namespace tessa
