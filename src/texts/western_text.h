#pragma once

#include <QLocale>
#include <QString>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "board/formats.h"

namespace sorvane {

// Texts of the program are bytes of the western single-byte set, code page 1252, on every system.
// Bytes without a character of their own stand for the control characters of the same number.
QString FromWestern(std::string_view text);

// The marks of a locale. Amounts show a point where the set doesn't have the decimal mark.
Separators SeparatorsOf(const QLocale& locale);

// text for a menu entry, a frame's title or the label of a control, where a single ampersand would
// mark an access key.
QString EscapeAmpersands(const QString& text);

// text as a file system without regard to case compares it: names that differ in case only are
// equal, and the order is that in which a folder is listed.
std::u16string FoldCase(std::string_view text);

// The name of a file or folder, in the encoding of the file system.
std::filesystem::path WesternToPath(std::string_view name);

// The same backwards; none if the set can't write the name.
std::optional<std::string> PathToWestern(const std::filesystem::path& path);

}  // namespace sorvane
