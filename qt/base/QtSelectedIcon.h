#pragma once
#include <QIcon>

/// The picture with a look for selected lines of a list. A picture of one colour is drawn there in the colour of the
/// text beside it; Qt mixes it with the colour of the selection, until it can hardly be seen. Any other stays as it is.
[[nodiscard]] QIcon WithSelectedLook(const QIcon& icon);

/// The same for the picture of a page, whose colours are its own: only what would hardly be seen on the selection, and
/// has nothing in it that stands out, is drawn in the colour of the text.
[[nodiscard]] QIcon WithSelectedPageLook(const QIcon& icon);
