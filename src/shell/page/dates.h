#pragma once

#include <QDate>
#include <cstdint>

namespace sorvane {

// The date of a day number as formats.h counts them.
inline QDate DateOf(int32_t day_number) { return QDate(1899, 12, 30).addDays(day_number); }

}  // namespace sorvane
