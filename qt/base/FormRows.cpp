#include "qt/base/FormRows.h"

#include "qt/base/Bind.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

namespace tessa::qt {

namespace {

template<typename Widget, typename Control>
Widget* BoundWidget(Control& control, const char* name, QChar accessKey) {
    auto* widget = new Widget;
    Bind(control, *widget, QString::fromLatin1(name), accessKey);
    return widget;
}

} // namespace

QLabel* NewLabel(Label& label, const char* name, QChar accessKey) {
    return BoundWidget<QLabel>(label, name, accessKey);
}

QCheckBox* NewCheckBox(CheckBox& box, const char* name, QChar accessKey) {
    return BoundWidget<QCheckBox>(box, name, accessKey);
}

QPushButton* NewButton(Button& button, const char* name, QChar accessKey) {
    auto* widget = BoundWidget<QPushButton>(button, name, accessKey);
    widget->setAutoDefault(false);
    return widget;
}

QDialogButtonBox* NewButtonRow(std::initializer_list<DialogButton> buttons) {
    auto* row = new QDialogButtonBox;
    for (const DialogButton& each : buttons) row->addButton(NewButton(each.Pressed, each.Name), each.Role);
    return row;
}

QDialogButtonBox* NewAnswers(const DialogButton& yes, const DialogButton& no) {
    auto* row = new QDialogButtonBox;
    for (const DialogButton* each : {&yes, &no})
        row->addButton(BoundWidget<QPushButton>(each->Pressed, each->Name, {}), each->Role);
    row->findChild<QPushButton*>(QString::fromLatin1(yes.Name))->setDefault(true);
    return row;
}

} // namespace tessa::qt
