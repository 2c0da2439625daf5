// SPDX-License-Identifier: GPL-2.0-or-later
// Names of the powers of ten, on the short scale.
#include <iterator>

#include "frame/guard.h"
#include "platform/number.h"
#include "statistics/BrelmonFunctions.h"

namespace brelmon {
namespace {

/// Of 10^3, 10^6 and so on to 10^303.
constexpr TextView kNames[] = {u"thousand",
                               u"million",
                               u"billion",
                               u"trillion",
                               u"quadrillion",
                               u"quintillion",
                               u"sexillion",
                               u"septillion",
                               u"octillion",
                               u"nonillion",
                               u"decillion",
                               u"undecillion",
                               u"duodecillion",
                               u"tredecillion",
                               u"quattuordecillion",
                               u"quindecillion",
                               u"sexdecillion",
                               u"septdecillion",
                               u"octodecillion",
                               u"novemdecillion",
                               u"vigintillion",
                               u"unvigintillion",
                               u"duovigintillion",
                               u"trevigintillion",
                               u"quattuorvigintillion",
                               u"quinvigintillion",
                               u"sexvigintillion",
                               u"septvigintillion",
                               u"octovigintillion",
                               u"novemvigintillion",
                               u"trigintillion",
                               u"untrigintillion",
                               u"duotrigintillion",
                               u"tretrigintillion",
                               u"quattuortrigintillion",
                               u"quintrigintillion",
                               u"sextrigintillion",
                               u"septtrigintillion",
                               u"octotrigintillion",
                               u"novemtrigintillion",
                               u"quadragintillion",
                               u"unquadragintillion",
                               u"duoquadragintillion",
                               u"trequadragintillion",
                               u"quattuorquadragintillion",
                               u"quinquadragintillion",
                               u"sexquadragintillion",
                               u"septquadragintillion",
                               u"octoquadragintillion",
                               u"novemquadragintillion",
                               u"quinquagintillion",
                               u"unquinquagintillion",
                               u"duoquinquagintillion",
                               u"trequinquagintillion",
                               u"quattuorquinquagintillion",
                               u"quinquinquagintillion",
                               u"sexquinquagintillion",
                               u"septquinquagintillion",
                               u"octoquinquagintillion",
                               u"novemquinquagintillion",
                               u"sexagintillion",
                               u"unsexagintillion",
                               u"duosexagintillion",
                               u"tresexagintillion",
                               u"quattuorsexagintillion",
                               u"quinsexagintillion",
                               u"sexsexagintillion",
                               u"septsexagintillion",
                               u"octosexagintillion",
                               u"novemsexagintillion",
                               u"septuagintillion",
                               u"unseptuagintillion",
                               u"duoseptuagintillion",
                               u"treseptuagintillion",
                               u"quattuorseptuagintillion",
                               u"quinseptuagintillion",
                               u"sexseptuagintillion",
                               u"septseptuagintillion",
                               u"octoseptuagintillion",
                               u"novemseptuagintillion",
                               u"octogintillion",
                               u"unoctogintillion",
                               u"duooctogintillion",
                               u"treoctogintillion",
                               u"quattuoroctogintillion",
                               u"quinoctogintillion",
                               u"sexoctogintillion",
                               u"septoctogintillion",
                               u"octooctogintillion",
                               u"novemoctogintillion",
                               u"nonagintillion",
                               u"unnonagintillion",
                               u"duononagintillion",
                               u"trenonagintillion",
                               u"quattuornonagintillion",
                               u"quinnonagintillion",
                               u"sexnonagintillion",
                               u"septnonagintillion",
                               u"octononagintillion",
                               u"novemnonagintillion",
                               u"centillion"};
constexpr std::int32_t kHighest = 3 * static_cast<std::int32_t>(std::size(kNames));
static_assert(kHighest == 303);

void Add(NumberNames& names, std::int32_t power, Text name, std::int32_t label) {
  names.Add({std::move(name), u"10^" + GeneralText(label)}, GeneralText(power));
}

void Add(NumberNames& names, std::int32_t power, Text name) {
  Add(names, power, std::move(name), power);
}

TextView NameOf(std::int32_t power) { return kNames[power / 3 - 1]; }

void AddFractions(NumberNames& names) {
  for (std::int32_t power = kHighest; power > 0; power -= 3) {
    // Reports have always spelled this one with a stray v.
    Add(names, -power, power == 249 ? u"duooctogintilliovnths" : Text(NameOf(power)) + u"ths");
    if (power == 102) Add(names, -100, u"Googolths");
    if (power == 6) {
      Add(names, -5, u"hundred thousandths", -6);
      Add(names, -4, u"ten thousandths", -6);
    }
  }
  Add(names, -2, u"hundredths");
}

void AddMultiples(NumberNames& names) {
  for (std::int32_t power = 3; power <= kHighest; power += 3) {
    if (power == 102) Add(names, 100, u"Googol");
    Add(names, power, Text(NameOf(power)));
  }
}

}  // namespace

Ref<NumberNames> MakeNumNameDictionary() {
  return Guard::Top(u"MakeNumNameDictionary", [] {
    const auto names = New<NumberNames>();
    AddFractions(*names);
    AddMultiples(*names);
    return names;
  });
}

}  // namespace brelmon
