// SPDX-License-Identifier: Apache-2.0
#include "host/engine/live_values.h"

#include <algorithm>
#include <cctype>

namespace engine {
namespace {

ValueSource source = nullptr;

bool begins_with(std::string_view word, std::string_view partial)
{
    auto same = [](char a, char b) {
        return tolower(static_cast<unsigned char>(a)) == tolower(static_cast<unsigned char>(b));
    };
    return word.size() >= partial.size() && std::equal(partial.begin(), partial.end(), word.begin(), same);
}

bool is_word(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

} // namespace

void set_value_source(ValueSource new_source)
{
    source = new_source;
}

std::vector<LiveValue> live_values(const Session& session, const Candidate& candidate,
                                   const std::vector<std::string_view>& words, std::string_view partial)
{
    std::vector<LiveValue> values;
    if (source == nullptr || candidate.literal || candidate.before.size() != words.size()) return values;
    std::vector<ValueQuestion::Word> before;
    for (std::size_t i = 0; i < words.size(); ++i)
        before.push_back({candidate.before[i], words[i]});
    source({session, candidate.word, before}, &values);
    if (values.size() > LIVE_VALUES) values.resize(LIVE_VALUES);
    std::erase_if(values,
                  [&](const LiveValue& value) { return !is_word(value.word) || !begins_with(value.word, partial); });
    return values;
}

} // namespace engine
