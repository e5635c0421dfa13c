#pragma once
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace tessa::qt {

/// Shows a modal dialog and does there what the user does, who must close it. Returns once it is closed.
inline void UseDialog(const std::function<void()>& show, const std::function<void(QDialog&)>& user) {
    bool used = false;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        used = true;
        user(*dialog);
        if (!dialog->isHidden()) {
            ADD_FAILURE() << "the dialog is still open";
            dialog->hide();
        }
    });
    show();
    EXPECT_TRUE(used);
}

} // namespace tessa::qt
