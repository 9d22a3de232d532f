// SPDX-License-Identifier: Apache-2.0
// An answer as one JSON document of a shape that never changes:
//
//   {"records": [{"OLT_id": "0", "fec": "off"}], "lines": [], "error": {"message": "OLT not exist", "code": -1003}}
//
// A record is a run of "name: value" lines; a name that was the answer's first one begins the next record. A name that
// comes twice in a record has an array of its values. Values are texts as they were printed: what type they have does
// not change with what they happen to hold. All other lines are in "lines"; blank lines and blanks at the ends are not.
// "error" is there only when the command failed.
#include <nlohmann/json.hpp>

#include "host/engine/failure_lines.h"
#include "host/engine/filter_kinds.h"
#include "host/engine/json_size.h"
#include "host/engine/name_value.h"

namespace engine {
namespace {

using nlohmann::ordered_json;

class Json : public Filter {
  public:
    void take(const AnswerLine& line) override
    {
        if (line.text.find_first_not_of(" \t") == std::string_view::npos) return;
        bool behind_error = std::exchange(error_is_last, false);
        held += json_size(line.text) + LINE_COST;
        if (held > FILTER_HOLD) {
            ++left_out;
        } else if (line.failure) {
            add_error(failure_in(line.text), behind_error);
        } else if (auto pair = name_and_value(line.text)) {
            add_pair(std::string(pair->name), std::string(pair->value));
        } else {
            lines.push_back(std::string(line.text.substr(0, line.text.find_last_not_of(" \t") + 1)));
        }
    }

    void end(int result) override
    {
        if (result != 0 && error.is_null()) add_error({"The command failed.", result}, false);
        ordered_json document;
        document["records"] = std::move(records);
        document["lines"] = std::move(lines);
        if (left_out > 0) document["lines_left_out"] = left_out;
        if (!error.is_null()) document["error"] = std::move(error);
        std::string text = document.dump(2, ' ', false, ordered_json::error_handler_t::replace);
        for (std::size_t from = 0; from < text.size();) {
            std::size_t end = std::min(text.find('\n', from), text.size());
            next->take({std::string_view(text).substr(from, end - from), false});
            from = end + 1;
        }
        next->end(result);
    }

  private:
    static constexpr std::size_t LINE_COST = 64; // what a short line takes as a member, about

    // "Command return error." is followed by what the error is.
    void add_error(const Failure& failure, bool behind_error)
    {
        bool explains = failure.code && behind_error && !error.contains("code");
        if (!error.is_null() && !explains) {
            lines.push_back(failure.message);
            return;
        }
        error_is_last = true;
        error["message"] = failure.message;
        if (failure.code) error["code"] = *failure.code;
    }
    void add_pair(const std::string& name, const std::string& value)
    {
        if (first_name.empty()) first_name = name;
        if (records.empty() || name == first_name) records.push_back(ordered_json::object());
        ordered_json& record = records.back();
        auto place = record.find(name);
        if (place == record.end())
            record[name] = value;
        else if (place->is_array())
            place->push_back(value);
        else
            *place = ordered_json::array({*place, value});
    }

    ordered_json records = ordered_json::array();
    ordered_json lines = ordered_json::array();
    ordered_json error;
    bool error_is_last = false; // the line before was the error
    std::string first_name;
    std::size_t held = 0;
    std::size_t left_out = 0;
};

} // namespace

std::unique_ptr<Filter> make_json(std::string_view, FilterWishes& wishes, std::string*)
{
    wishes.takes_errors = true;
    return std::make_unique<Json>();
}

} // namespace engine
