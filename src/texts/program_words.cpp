#include "texts/program_words.h"

#include <array>

namespace sorvane {
namespace {

struct Words {
  Hint hint;
  const char* english;
  const char* italian;
};

constexpr std::array kWords = {
    Words{Hint::kNotConfirmed, "not confirmed by the board yet",
          "non ancora confermato dalla scheda"},
    Words{Hint::kByBarAlone, "changed by the bar alone", "si cambia solo con la barra"},
    Words{Hint::kWorksAllTheSame, "grey, but its switch works",
          "grigio, ma l'interruttore funziona"},
    Words{Hint::kClockUnknown, "closed: the board has not shown that it has a clock",
          "chiusa: la scheda non ha ancora mostrato di avere un orologio"},
    Words{Hint::kOtherSystem, "closed: belongs to another payment system",
          "chiusa: appartiene a un altro sistema di pagamento"},
    Words{Hint::kTransmit, "transmit: a request goes to the board",
          "trasmissione: una richiesta va alla scheda"},
    Words{Hint::kReceive, "receive: an answer has come from the board",
          "ricezione: è arrivata una risposta dalla scheda"},
    Words{Hint::kLineError, "error: the board doesn't answer, or not rightly",
          "errore: la scheda non risponde, o non risponde bene"},
    Words{Hint::kNoPage, "No page is open", "Nessuna pagina aperta"},
};

}  // namespace

QString HintText(Hint hint, bool italian) {
  for (const Words& words : kWords) {
    if (words.hint == hint) return QString::fromUtf8(italian ? words.italian : words.english);
  }
  return {};
}

}  // namespace sorvane
