#include "cli/audit_words.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace sorvane::cli {
namespace {

// In English and in Italian.
struct Words {
  std::string_view en;
  std::string_view it;

  std::string_view In(Language language) const { return language == Language::kItalian ? it : en; }
};

// In the order of Word.
constexpr Words kWords[] = {
    {"Audit of machine", "Contabilità della macchina"},
    {"Machine", "Macchina"},
    {"number", "numero"},
    {"location", "locazione"},
    {"read at", "letta il"},
    {"earlier visit", "visita precedente"},
    {"board type / software / revision", "tipo / software / revisione della scheda"},
    {"index file", "file di indice"},
    {"decimals of amounts", "decimali degli importi"},
    {"program", "programma"},
    {"Totals", "Totali"},
    {"total", "totale"},
    {"takings", "incasso"},
    {"vends", "battute"},
    {"discounts", "sconti"},
    {"discounts by key", "sconti chiave"},
    {"not resettable", "non azzerabile"},
    {"resettable", "azzerabile"},
    {"change", "variazione"},
    {"reset", "azzerato"},
    {"Selections", "Selezioni"},
    {"selection", "selezione"},
    {"price", "prezzo"},
    {"free vends", "vendite gratuite"},
    {"Motors", "Motori"},
    {"motor", "motore"},
    {"blocks", "blocchi"},
    {"Coins", "Monete"},
    {"Banknotes", "Banconote"},
    {"channel", "canale"},
    {"value", "valore"},
    {"accepted", "accettata"},
    {"taken", "incassate"},
    {"Other figures", "Altri dati"},
    {"what", "voce"},
    {"Alarms, the newest first", "Allarmi, il più recente per primo"},
    {"no.", "n."},
    {"date", "data"},
    {"time", "ora"},
    {"event", "evento"},
    {"meaning", "significato"},
    {"code", "codice"},
    {"no alarms", "nessun allarme"},
    {"To note", "Da notare"},
    {"Settings", "Impostazioni"},
    {"setting", "impostazione"},
    {"yes", "sì"},
    {"no", "no"},
    {"on", "attivo"},
    {"off", "non attivo"},
};
static_assert(std::size(kWords) == static_cast<std::size_t>(Word::kOff) + 1);

// In the order of AuditNote; names follow where there are any.
constexpr Words kNotes[] = {
    {"the board hasn't answered all that was asked for",
     "la scheda non ha risposto a tutte le domande"},
    {"the alarms aren't known, since a part of their ring is missing",
     "gli allarmi non sono noti, perché manca una parte del loro anello"},
    {"the alarms aren't known, since the pointer to the newest leads nowhere",
     "gli allarmi non sono noti, perché il puntatore al più recente non porta a nulla"},
    {"the board's decimals are more than an amount can have; amounts are whole numbers here",
     "i decimali della scheda sono più di quanti un importo ne può avere; qui gli importi sono "
     "numeri interi"},
    {"the earlier snapshot is of a later time", "la copia precedente è di un momento successivo"},
    {"amounts had other decimals at the earlier visit, and aren't compared",
     "alla visita precedente gli importi avevano altri decimali, e non vengono confrontati"},
    {"lower than at the earlier visit, so reset in between: ",
     "meno che alla visita precedente, quindi azzerati nel frattempo: "},
    {"lower than at the earlier visit, although nothing tells that they can be reset: ",
     "meno che alla visita precedente, benché nulla dica che si possano azzerare: "},
};
static_assert(std::size(kNotes) == static_cast<std::size_t>(AuditNote::kUnexpectedlyLow) + 1);

struct GroupWords {
  Group group;
  Words words;
};
constexpr GroupWords kGroupWords[] = {
    {Group::kGeneral, {"General", "Generali"}},
    {Group::kOptions, {"Options", "Opzioni"}},
    {Group::kItems, {"Item numbers", "Numeri di item"}},
    {Group::kDiscounts, {"Discounts", "Sconti"}},
    {Group::kBands, {"Times of the day", "Orari"}},
    {Group::kPayment, {"Payment", "Pagamento"}},
    {Group::kMdb, {"Change and credit", "Resto e credito"}},
    {Group::kTubes, {"Tubes", "Tubi"}},
    {Group::kTokens, {"Tokens", "Token"}},
    {Group::kKeys, {"Keys", "Tasti"}},
    {Group::kProducts, {"Products", "Prodotti"}},
};

// Names with '#' for their number, and their Italian titles; the catalogue has the English ones.
struct ItalianTitle {
  std::string_view name;
  std::string_view title;
};
constexpr ItalianTitle kItalianTitles[] = {
    {"language", "lingua della macchina"},
    {"selections", "numero di selezioni"},
    {"temperature.difference", "delta temperatura"},
    {"temperature.setting", "temperatura impostata"},
    {"motor.timeout", "timeout motori"},
    {"defrost.time", "durata dello sbrinamento"},
    {"defrost.every", "ore tra gli sbrinamenti"},
    {"option.free-vend", "vendita libera"},
    {"option.price-holding", "price holding"},
    {"option.on-off-times", "accensione e spegnimento a orario"},
    {"option.password", "password richiesta"},
    {"option.equal-products", "colonne di prodotti uguali"},
    {"option.immediate-change", "resto subito"},
    {"item.#", "item della selezione #"},
    {"discount.#", "sconto della selezione #"},
    {"band.#.start.hours", "fascia di sconto #, inizio: ore"},
    {"band.#.start.minutes", "fascia di sconto #, inizio: minuti"},
    {"band.#.end.hours", "fascia di sconto #, fine: ore"},
    {"band.#.end.minutes", "fascia di sconto #, fine: minuti"},
    {"on.hours", "accensione: ore"},
    {"on.minutes", "accensione: minuti"},
    {"off.hours", "spegnimento: ore"},
    {"off.minutes", "spegnimento: minuti"},
    {"payment.system", "sistema di pagamento"},
    {"changer.on", "cambiamonete"},
    {"changer.ignore-exact-change", "ignora resto esatto"},
    {"changer.tokens", "token accettati"},
    {"changer.token-change", "resto sui token"},
    {"changer.token-recharge", "ricarica con token"},
    {"changer.token-exact-change", "token con resto esatto"},
    {"maximum.change", "resto massimo"},
    {"maximum.coin-credit", "credito massimo da monete"},
    {"maximum.key-credit", "credito massimo su chiave"},
    {"tube.#", "livello minimo del tubo #"},
    {"token.#", "valore del token #"},
    {"base-coin", "moneta base"},
    {"decimals", "punto decimale impostato"},
    {"credit.timeout", "timeout credito"},
    {"sale.mode", "modo di vendita"},
    {"key.#", "colonna del tasto #"},
    {"product.#", "prodotto della colonna #"},
    {"overpaid", "importi pagati in più"},
    {"power-ons", "accensioni"},
    {"motor-resets", "reset dei motori"},
    {"visits", "interventi tecnici"},
};

// By the letters with which an event begins. The machine's own words are the Italian ones.
struct EventWords {
  std::string_view event;
  std::string_view en;
};
constexpr EventWords kEventWords[] = {
    {"ECM", "memory of the board"},
    {"EAR", "coin system"},
    {"EAJ", "scaling factor of the coin system"},
    {"EDM", "temperature probe"},
    {"ECA", "24 V supply"},
    {"OBC_#", "product # is empty"},
    {"EJB_#", "motor # is blocked"},
};

constexpr std::string_view kDigits = "0123456789";

// A text with a number within, or none: the number, and the text with '#' in its place.
struct Numbered {
  std::string pattern;
  std::string number;
};

Numbered Split(const std::string& text, char before) {
  const std::size_t mark = text.find(before);
  const std::size_t first = mark == std::string::npos ? mark : mark + 1;
  if (first >= text.size() || kDigits.find(text[first]) == std::string_view::npos) {
    return {text, {}};
  }
  const std::size_t end = std::min(text.find_first_not_of(kDigits, first), text.size());
  return {text.substr(0, first) + '#' + text.substr(end), text.substr(first, end - first)};
}

std::string WithNumber(std::string_view pattern, const std::string& number) {
  std::string text(pattern);
  const std::size_t mark = text.find('#');
  return mark == std::string::npos ? text : text.replace(mark, 1, number);
}

}  // namespace

std::string_view WordOf(Word word, Language language) {
  return kWords[static_cast<std::size_t>(word)].In(language);
}

std::string RemarkOf(const AuditRemark& remark, Language language) {
  return std::string(kNotes[static_cast<std::size_t>(remark.note)].In(language)) + remark.names;
}

std::string TitleOf(const Named& named, Language language) {
  const std::string& english = named.bit != nullptr ? named.bit->title : named.entry->title;
  if (language == Language::kEnglish) return english;
  const Numbered name = Split(named.Name(), '.');
  const auto* found = std::ranges::find(kItalianTitles, name.pattern, &ItalianTitle::name);
  return found == std::end(kItalianTitles) ? english : WithNumber(found->title, name.number);
}

std::string_view TitleOf(Group group, Language language) {
  const auto* found = std::ranges::find(kGroupWords, group, &GroupWords::group);
  return found == std::end(kGroupWords) ? GroupName(group) : found->words.In(language);
}

std::string MeaningOf(const AuditAlarm& alarm, Language language) {
  if (alarm.event.empty()) {
    return std::string(WordOf(Word::kCode, language)) + ' ' + std::to_string(alarm.code);
  }
  if (language == Language::kItalian) return alarm.words;
  const Numbered event = Split(alarm.event, '_');
  const auto* found = std::ranges::find(kEventWords, event.pattern, &EventWords::event);
  return found == std::end(kEventWords) ? alarm.words : WithNumber(found->en, event.number);
}

}  // namespace sorvane::cli
