#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

namespace sorvane::test {

// A row as it has to come out. Its date is a day of the calendar; none for "00/00/00".
struct ExpectedRow {
  int code;
  std::optional<std::chrono::sys_days> date;
  int hour;
  int minute;
};

// The board's ring, and what a list of it has to be. It goes by the calendar and knows nothing of
// how the program counts days.
struct RingModel {
  std::array<std::array<int, 8>, 20> records{};  // minute stands at 1, code at 6
  std::uint32_t pointer = 0;

  void Set(int q, const std::array<int, 6>& parts) {
    for (std::size_t i = 0; i < 6; ++i) At(q)[i + 1] = parts[i];
  }
  std::array<int, 8>& At(int q) { return records[static_cast<std::size_t>(q)]; }

  // Nothing where the program has to end with a subscript out of range.
  std::optional<std::vector<ExpectedRow>> List() const {
    std::vector<ExpectedRow> rows;
    if (pointer > 20) return rows;
    if (pointer == 20) return std::nullopt;
    for (std::size_t n = 0; n < 20; ++n) {
      const auto& record = records[(pointer + 20 - n) % 20];
      if (record[6] > 50) break;
      if (record[4] > 12) return std::nullopt;
      rows.push_back({record[6], Date(record[5], record[4], record[3]), record[2], record[1]});
    }
    return rows;
  }

 private:
  // The day that lies as many days behind the last one of the month before as day tells.
  static std::optional<std::chrono::sys_days> Date(int year, int month, int day) {
    if (day == 0 && month == 0) return std::nullopt;
    const auto first =
        std::chrono::year(2000 + year) / static_cast<int>(month == 0 ? 1 : month) / 1;
    return std::chrono::sys_days(first) + std::chrono::days(day - 1);
  }
};

inline int Pick(std::minstd_rand& random, const std::vector<int>& values) {
  return values[random() % values.size()];
}

// Parts at their edges for the most part. One ring in four has a month above 12 somewhere, and one
// in two a code above 50.
inline RingModel RandomRing(std::minstd_rand& random) {
  RingModel ring;
  for (auto& record : ring.records) {
    for (int& part : record) part = static_cast<int>(random() % 256);
    record[3] = Pick(random, {0, 0, 1, 2, 12, 13, 28, 29, 30, 31, 32, 255});
    record[4] = Pick(random, {0, 0, 1, 2, 3, 4, 11, 12});
    record[5] = Pick(random, {0, 1, 4, 26, 99, 100, 101, 200, 255});
    record[6] = static_cast<int>(random() % 51);
  }
  if (random() % 4 == 0) ring.records[random() % 20][4] = Pick(random, {13, 14, 128, 255});
  if (random() % 2 == 0) ring.records[random() % 20][6] = Pick(random, {51, 52, 127, 255});
  ring.pointer = random() % 20;
  return ring;
}

// Gives all answers of the board to something that takes them.
template <typename Take>
void AnswerAll(const RingModel& model, Take take) {
  for (int q = 0; q < 20; ++q) {
    for (int part = 0; part < 8; ++part) {
      const auto& record = model.records[static_cast<std::size_t>(q)];
      take(118 + 8 * q + part, record[static_cast<std::size_t>(part)]);
    }
  }
  take(278, model.pointer);
}

// Record q is of q hours and 2 * q minutes on 1 + q May 2010, with code q + 1.
inline RingModel PlainRing() {
  RingModel ring;
  for (int q = 0; q < 20; ++q) ring.Set(q, {2 * q, q, q + 1, 5, 10, q + 1});
  return ring;
}

}  // namespace sorvane::test
