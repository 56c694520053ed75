#include <chrono>
#include <random>

#include "pages/allarmi_page.h"
#include "support/ring_model.h"

namespace sorvane::test {
namespace {

// Rings of all kinds through the whole of the page.
class AlarmRingOnThePage : public AllarmiPage {
 protected:
  // Tells the page the whole ring anew; everything is fresh already.
  void TellAll(const RingModel& model) {
    AnswerAll(model, [this](int parameter, std::uint32_t value) {
      Tell(parameter, static_cast<uint8_t>(value));
    });
  }

  static QString Description(int code) {
    const auto numbered = [](const QString& text, int n) {
      return text.arg(n) + (n == 10 ? "" : " ");
    };
    if (code == 1) return "ECM_allarme eeprom   ";
    if (code == 2) return "EAR_allarme gettoniera   ";
    if (code == 3) return "EAJ_allarme fattore di scala   ";
    if (code == 9) return "EDM_segnalazione sonda   ";
    if (code == 10) return "ECA_segnalazione 24V   ";
    if (code >= 17 && code <= 26) return numbered("OBC_%1_vuoto prodotto %1", code - 16);
    if (code >= 33 && code <= 42) return numbered("EJB_%1_blocco motore %1", code - 32);
    return code == 0 || code > 48 ? "" : "      ";
  }
  static QStringList Texts(int n, const ExpectedRow& row) {
    QString date = "00/00/00";
    if (row.date) {
      const std::chrono::year_month_day day(*row.date);
      date = QString::asprintf("%02u/%02u/%04d", static_cast<unsigned>(day.day()),
                               static_cast<unsigned>(day.month()), static_cast<int>(day.year()));
    }
    return {QString::number(n), date, QString::asprintf("%02d:%02d", row.hour, row.minute),
            Description(row.code)};
  }
  void ExpectList(const RingModel& model) {
    const auto expected = model.List();
    ASSERT_TRUE(expected);
    ASSERT_EQ(Rows(), static_cast<int>(expected->size()));
    for (int i = 0; i < Rows(); ++i) {
      EXPECT_EQ(Row(i), Texts(i + 1, (*expected)[static_cast<std::size_t>(i)]));
    }
  }
};

TEST_F(AlarmRingOnThePage, RingsThatTheBoardAnswersOneAfterTheOther) {
  std::minstd_rand random(118);
  OpenRead();
  for (int i = 0; i < 100 && !HasFailure(); ++i) {
    RingModel ring = RandomRing(random);
    // Nothing may go wrong while the old ring turns into the new one.
    for (auto& record : ring.records) record[4] %= 13;
    if (i % 10 == 9) ring.pointer = 21 + random() % 235;
    TellAll(ring);
    ExpectList(ring);
  }
  EXPECT_THAT(program.reports, testing::IsEmpty());
}

TEST_F(AlarmRingOnThePage, EveryPointerThatTheBoardAnswers) {
  RingModel ring = PlainRing();
  AnswerAll(ring, [this](int parameter, std::uint32_t value) { SetNumbers(parameter, {value}); });
  OpenRead();
  ExpectList(ring);
  for (std::uint32_t pointer = 0; pointer < 40; ++pointer) {
    if (pointer == 20) continue;
    ring.pointer = pointer;
    BoardSays(278, pointer);
    ExpectList(ring);
  }
}

TEST_F(AlarmRingOnThePage, PageThatIsOpenedAnewListsAnotherRing) {
  std::minstd_rand random(7);
  for (int i = 0; i < 10 && !HasFailure(); ++i) {
    RingModel ring = RandomRing(random);
    for (auto& record : ring.records) record[4] %= 13;
    AnswerAll(ring, [this](int parameter, std::uint32_t value) { SetNumbers(parameter, {value}); });
    OpenRead();
    ExpectList(ring);
    ClosePage();
  }
}

}  // namespace
}  // namespace sorvane::test
