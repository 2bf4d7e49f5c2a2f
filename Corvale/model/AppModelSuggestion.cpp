// How AppModel finds the columns that rows are matched by.

#include <algorithm>
#include <utility>

#include "Corvale/model/AppModel.h"
#include "Corvale/model/FailureTexts.h"
#include "Corvale/model/ModelOperation.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/text/Text.h"

namespace corvale {

void AppModel::interruptSuggestion() {
    if (m_isSuggesting) {
        abandonSuggestion();
        m_isPairNew = true;
    }
}

void AppModel::suggestKey() {
    m_isPairNew = false;
    if (!hasBothFiles()) {
        set(m_suggestedKey, std::optional<std::string>(), &AppModel::suggestedKeyChanged);
        clearResult();
        return;
    }
    m_isSuggesting = true;
    m_comparesAfterSuggestion = true;
    const std::uint64_t generation = ++m_suggestGeneration;
    m_jobs.run([before = before()->table, after = after()->table] { return KeySuggester::suggestedKey(before, after); },
               [this, generation](Outcome<std::optional<std::string>>& outcome) {
                   const Operation operation(*this);
                   if (generation != m_suggestGeneration || !m_isSuggesting) {
                       return;
                   }
                   m_isSuggesting = false;
                   if (outcome.failure) {
                       tell(FailureTexts::ofComparing(outcome.failure));
                   }
                   takeSuggestion(outcome.value.value_or(std::nullopt));
               });
}

void AppModel::abandonSuggestion() {
    m_isSuggesting = false;
    ++m_suggestGeneration;
}

void AppModel::takeSuggestion(std::optional<std::string> proposal) {
    const std::vector<std::string> shared = sharedColumns();
    const auto& chosen = m_match.column();
    const bool isKept = chosen ? std::find(shared.begin(), shared.end(), *chosen) != shared.end() : m_isMatchChosen;
    if (!isKept) {
        set(m_match, proposal ? MatchChoice::key(*proposal) : MatchChoice::rowOrder(), &AppModel::matchChanged);
        m_isMatchChosen = false;
    }
    set(m_suggestedKey, std::move(proposal), &AppModel::suggestedKeyChanged);
    if (m_comparesAfterSuggestion) {
        startComparing();
    }
}

// The key is named as Before has it, and the two files may differ in letter case.
void AppModel::followNamesOfBefore() {
    for (const std::string& name : sharedColumns()) {
        if (m_match.column() && Text::equalIgnoringCase(name, *m_match.column())) {
            set(m_match, MatchChoice::key(name), &AppModel::matchChanged);
        }
        if (m_suggestedKey && Text::equalIgnoringCase(name, *m_suggestedKey)) {
            set(m_suggestedKey, std::optional(name), &AppModel::suggestedKeyChanged);
        }
    }
}

}  // namespace corvale
