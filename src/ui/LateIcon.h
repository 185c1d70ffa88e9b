// Icons that read their file when they are first drawn: of the many in menus and lists most are
// never seen.
#pragma once

#include <QIcon>

/// As QIcon of that name, of a picture file or resource with its partner for dense screens. Null
/// without such a file.
QIcon lateIcon(const QString& fileName);
/// The same in several sizes: `fileNames` has %1 where the side stands, in pixels. Ascending.
QIcon lateIcon(const QString& fileNames, std::initializer_list<int> sides);
