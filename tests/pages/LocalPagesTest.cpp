#include "pages/LocalPages.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

struct LocalRow {
    TextView page, file;
    LocalUse use;
    bool may;
};

TEST(LocalPages, LoadWhatIsTheirsAndReadNothingElse) {
    using enum LocalUse;
    for (const LocalRow& row : {
             LocalRow{u"/h/got/a.html", u"/h/other/b.html", Page, true},
             LocalRow{u"/h/got/a.html", u"/h/got/a_files/b.html", Frame, true},
             LocalRow{u"/h/got/a.b.htm", u"/h/got/a.b_files/in/c.html", Frame, true},
             LocalRow{u"/h/got/a", u"/h/got/a_files/b.html", Frame, true},
             LocalRow{u"/h/g.t/a", u"/h/g.t/a_files/b.html", Frame, true},
             LocalRow{u"/h/got/a.html", u"/h/got/b.html", Frame, false},
             LocalRow{u"/h/got/a.html", u"/h/got/a_files", Frame, false},
             LocalRow{u"/h/got/a.html", u"/h/got/b_files/c.html", Frame, false},
             LocalRow{u"", u"/h/got/b.html", Frame, false},
             LocalRow{u"", u"_files/b.html", Frame, false},
             LocalRow{u"/h/got/a.html", u"/h/got/a.png", Part, true},
             LocalRow{u"/h/doc/html/a.html", u"/h/doc/style.css", Part, true},
             LocalRow{u"/h/a.html", u"/h/.ssh/id", Part, false},
             LocalRow{u"/h/got/a.html", u"/h/.config/x/y.js", Part, false},
             LocalRow{u"/h/got/a.html", u"/h/got/.key", Part, false},
             LocalRow{u"/h/.local/doc/a.html", u"/h/.local/doc/a.css", Part, true},
             LocalRow{u"/h/.local/doc/a.html", u"/h/.local/a.css", Part, true},
             LocalRow{u"/h/.local/doc/a.html", u"/h/.lonely/a.css", Part, false},
             LocalRow{u"", u"/h/.ssh/id", Part, false},
             LocalRow{u"", u"", Part, true},
             LocalRow{u"/h/got/a.html", u"/h/got/a.txt", Data, false},
             LocalRow{u"/h/got/a.html", u"/h/got/a_files/a.txt", Data, false},
         })
        EXPECT_EQ(MayLoadLocal(row.page, row.file, row.use), row.may)
            << ToUtf8(row.page) << " " << ToUtf8(row.file) << " " << static_cast<int>(row.use);
}

} // namespace

} // namespace tessa
