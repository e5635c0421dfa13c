#include "qt/base/ChoiceBinding.h"

#include "qt/base/Bind.h"
#include "qt/base/Strings.h"

#include <QComboBox>

namespace tessa::qt {

void Bind(Choice& choice, QComboBox& widget, const QString& name) {
    widget.setObjectName(name);
    widget.setAccessibleName(ToQt(choice.Caption));
    for (const Text& item : choice.Items) widget.addItem(ToQt(item));
    KeepWith(widget,
             choice.Index.Attach([&widget](std::size_t index) { widget.setCurrentIndex(static_cast<int>(index)); }));
    KeepWith(widget, choice.Enabled.Attach([&widget](bool on) { widget.setEnabled(on); }));
    QObject::connect(&widget, &QComboBox::currentIndexChanged, &widget, [&choice](int index) {
        if (index >= 0) choice.Index = static_cast<std::size_t>(index);
    });
}

} // namespace tessa::qt
