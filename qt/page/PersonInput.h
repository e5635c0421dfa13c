#pragma once
#include <QObject>

namespace tessa::qt {

/// Tells each page of the clicks and keys that reach it from a person. The engine does not say of a link whether it
/// was clicked by one or by a script.
class PersonInput final : public QObject {
public:
    PersonInput();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tessa::qt
