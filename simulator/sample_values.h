#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "simulator/parameter_numbers.h"

// What the machine of the sample contents holds: made up, any other would do as long as one finds
// it believable.
namespace sorvane::simulator {

// Values of consecutive parameters.
struct SampleRow {
  int first;
  std::vector<uint32_t> values;
};

inline const std::vector<SampleRow>& SampleRows() {
  static const std::vector<SampleRow> rows = {
      {1, {0, 10, 8 + 32 + 64}},  // Italian, ten selections, options
      {4, {2, 4, 120, 15, 6}},    // temperatures, motor timeout, defrost
      {9, {100234, 152}},         // machine, location
      {22, {2}},                  // decimals
      {23, {100, 120, 150, 150, 180, 200, 220, 250, 250, 300}},            // prices
      {33, {1101, 1102, 1103, 1204, 1205, 1306, 1307, 2108, 2109, 2210}},  // items
      {43, {10, 10, 10, 15, 15, 20, 20, 25, 25, 30}},                      // discounts
      {59, {10, 0, 11, 30, 15, 0, 16, 30}},                                // discount bands
      {67, {7, 0, 22, 30}},                                                // on, off
      {71, {3, 1 + 4, 500, 1000, 2500}},                // MDB, changer and tokens, limits
      {76, {5, 5, 4, 4, 3}},                            // tubes
      {81, {50, 100, 200}},                             // tokens
      {84, {5, 2, 10, 0}},                              // base coin, point, credit timeout, mode
      {88, {1 + 2 + 4, 0}},                             // banknotes
      {90, {5, 10, 20, 50, 100, 200}},                  // coins
      {98, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},            // column of each key
      {108, {11, 12, 13, 24, 25, 36, 37, 58, 59, 70}},  // product of each column
      {279, {56830, 339330, 356, 2140}},                // takings, vends
      {283, {690, 4120, 310, 1850, 745}},               // discounts, overpay
      {288, {210, 640, 1180, 1420, 1330, 310, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},  // coins taken
      {304, {96, 41, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},               // banknotes taken
      {320, {412, 388, 295, 240, 198, 176, 150, 121, 96, 64}},                 // vends
      {330, {2, 0, 1, 0, 0, 3, 0, 0, 1, 0}},                                   // motor blocks
      {340, {12, 8, 5, 4, 3, 2, 2, 1, 1, 0}},                                  // free vends
      {350, {6, 14, 87}},   // motor resets, interventions, power-ons
      {411, {1, 2, 3, 4}},  // password
  };
  return rows;
}

// In the western single-byte set.
inline constexpr std::array<const char*, 10> kSampleLanguages = {
    "Italiano",
    "English",
    "Fran\xe7"
    "ais",
    "Deutsch",
    "Espa\xf1ol",
    "Portugu\xeas",
    "Nederlands",
    "Svenska",
    "Dansk",
    "Suomi",
};

struct SampleAlarm {
  int days_ago;
  int hour;
  int minute;
  uint32_t code;
};

// Newest first.
inline constexpr std::array<SampleAlarm, number::kAlarmRecords> kSampleAlarms = {{
    {1, 16, 42, 19}, {2, 9, 5, 38},    {3, 13, 20, 17},  {3, 13, 1, 2},    {5, 18, 33, 24},
    {6, 7, 58, 10},  {8, 11, 47, 33},  {8, 11, 45, 33},  {10, 15, 12, 26}, {11, 8, 30, 9},
    {13, 19, 4, 18}, {14, 12, 26, 35}, {16, 10, 51, 21}, {17, 17, 9, 20},  {19, 14, 38, 3},
    {20, 9, 44, 41}, {22, 21, 15, 22}, {24, 16, 2, 25},  {25, 10, 10, 1},  {27, 12, 55, 23},
}};

}  // namespace sorvane::simulator
