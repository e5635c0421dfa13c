#pragma once
#include <QIcon>

namespace tessa::qt {

/// The picture with a look for selected lines of a list. A picture of one colour is drawn there in the colour of the
/// text beside it. Qt mixes it with the selection's colour, until it can hardly be seen. Any other stays as it is.
[[nodiscard]] QIcon WithSelectedLook(const QIcon& icon);

/// The same for a page's icon, whose colours are its own. Only an icon that would hardly be seen on the selection is
/// drawn in the colour of the text.
[[nodiscard]] QIcon WithSelectedPageLook(const QIcon& icon);

} // namespace tessa::qt
