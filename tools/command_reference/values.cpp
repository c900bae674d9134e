#include "tools/command_reference/values.h"

#include "settings/integer_setting.h"
#include "text/text.h"

namespace {

std::string quoted(const std::string& word) { return "`" + word + "`"; }

std::string numbersOf(const Family& family) {
    const bool steps = family.action == steppedInteger<0, 0>.action;
    return "a number from " + std::to_string(family.range.first) + " to " + std::to_string(family.range.last) +
           (steps ? ", `+` or `-` for one step" : "");
}

std::string wordsOf(const Family& family) {
    std::string words;
    for (const Word& word : family.words) {
        words += (words.empty() ? "" : ", ") + quoted(word.typed);
        if (family.kind == LeafKind::text && !equals(word.storedForm(), word.typed)) {
            words += " (" + std::string(word.storedForm()) + ")";
        }
    }
    return words;
}

std::string acceptedBy(const Family& family) {
    if (!family.words.empty()) return wordsOf(family);
    if (family.range.isEmpty()) return {};
    if (family.kind == LeafKind::number) return numbersOf(family);
    return "a text of " + std::to_string(family.range.first) + " to " + std::to_string(family.range.last) + " bytes";
}

}  // namespace

std::string valuesOf(const CommandEntry& row) {
    const std::string accepted = acceptedBy(row.family);
    return accepted.empty() || row.family.gate == nullptr ? accepted : accepted + "; only while the scaler is on";
}

std::string exampleValueOf(const CommandEntry& row) {
    const Family& family = row.family;
    const std::string name = row.name;
    if (!family.words.empty()) return name + " " + family.words.back().typed;
    if (family.kind == LeafKind::number && !family.range.isEmpty())
        return name + " " + std::to_string(family.range.last);
    return name;
}
