#include "pages/PageCaptures.h"

#include <gtest/gtest.h>

namespace tessa {

namespace {

TEST(PageCaptures, AreNamed) {
    PageCaptures captures;
    EXPECT_TRUE(captures.Empty());
    for (const auto none : {SitePermission::Location, SitePermission::Notifications, SitePermission::Popups})
        captures.Allow(none);
    EXPECT_TRUE(captures.Empty());
    captures.Allow(SitePermission::Microphone);
    EXPECT_EQ(captures.Words(), u"microphone");
    captures.Allow(SitePermission::Camera);
    EXPECT_EQ(captures.Words(), u"camera and microphone");
    captures.Allow(SitePermission::ScreenAndSound);
    EXPECT_EQ(captures.Words(), u"camera, microphone and screen");
    PageCaptures both;
    both.Allow(SitePermission::CameraAndMicrophone);
    EXPECT_EQ(both.Words(), u"camera and microphone");
}

TEST(PageCaptures, AreSaidOfTheirPage) {
    PageCaptures captures;
    EXPECT_EQ(captures.Sentence(u"a.example"), u"");
    captures.Allow(SitePermission::Camera);
    EXPECT_EQ(captures.Sentence(u"a.example:81"), u"a.example:81 may use your camera.");
    EXPECT_EQ(captures.Sentence(u""), u"A page may use your camera.");
}

TEST(PageCaptures, LastUntilTheirDocumentIsGone) {
    PageCaptures captures;
    captures.Allow(SitePermission::Camera);
    captures.BeginNavigation();
    EXPECT_EQ(captures.Words(), u"camera") << "the page is still there";
    captures.BeginNavigation();
    EXPECT_EQ(captures.Words(), u"camera") << "the first came to nothing";
    captures.ShowDocument();
    EXPECT_TRUE(captures.Empty());
}

TEST(PageCaptures, OfTheNextDocumentAreNotTakenForThoseOfTheLast) {
    PageCaptures captures;
    captures.Allow(SitePermission::Camera);
    captures.BeginNavigation();
    captures.Allow(SitePermission::Screen);
    captures.ShowDocument();
    EXPECT_EQ(captures.Words(), u"screen") << "it was asked for before the document was known to be there";
    captures.BeginNavigation();
    captures.ShowDocument();
    EXPECT_TRUE(captures.Empty());
}

TEST(PageCaptures, EndWithTheProcess) {
    PageCaptures captures;
    captures.Allow(SitePermission::Camera);
    captures.BeginNavigation();
    captures.Allow(SitePermission::Screen);
    captures.End();
    EXPECT_TRUE(captures.Empty());
}

} // namespace

} // namespace tessa
