// SPDX-License-Identifier: Apache-2.0
// Values that the host tells for "?" and completion.
#include "host/engine/live_values.h"

#include "engine/engine_fixture.h"

#include "host/engine/dispatch.h"

namespace {

std::vector<engine::LiveValue> told;
std::string asked; // "form:typed/form:typed ? form"

void tell(const engine::ValueQuestion& question, std::vector<engine::LiveValue>* values)
{
    asked.clear();
    for (const auto& word : question.before)
        asked.append(asked.empty() ? "" : "/").append(word.form).append(":").append(word.typed);
    asked.append(" ? ").append(question.form);
    EXPECT_EQ(question.session.node, ENABLE_NODE);
    if (question.form == "UNIT") *values = told;
}

class LiveValues : public ::testing::Test {
  protected:
    LiveValues()
    {
        install_test_nodes();
        engine::set_value_source(tell);
        session = engine::open_memory_session();
        session->node = ENABLE_NODE;
        told = {{"1", "one"}, {"10", "ten"}, {"12", "twelve"}, {"3", ""}};
    }
    ~LiveValues() override
    {
        engine::set_value_source(nullptr);
        engine::close_session(session);
    }
    std::string help(std::string_view line)
    {
        return help_text(*engine::session_of(session), line);
    }
    engine::Completion complete(std::string_view line)
    {
        return engine::complete(*engine::session_of(session), line);
    }
    vty* session;
};

} // namespace

TEST_F(LiveValues, StandBelowTheirWord)
{
    EXPECT_EQ(help("uni "), "  UNIT  Its number\r\n"
                            "    1   one\r\n"
                            "    10  ten\r\n"
                            "    12  twelve\r\n"
                            "    3\r\n");
    EXPECT_EQ(asked, "unit:uni ? UNIT");
    EXPECT_EQ(help("unit 12"), "  UNIT  Its number\r\n    12  twelve\r\n");
    EXPECT_EQ(help("unit 7"), "  UNIT  Its number\r\n") << "other values may be typed as well";
    EXPECT_EQ(help("say "), "  WORD  Any word\r\n");
}

TEST_F(LiveValues, AreCompleted)
{
    struct {
        const char* line;
        const char* insert;
        const char* listing;
    } const cases[] = {
        {"unit ", "", "1   10  12  3\r\n"},
        {"unit 1", "", "1   10  12\r\n"},
        {"unit 12", " ", ""},
        {"unit 3", " ", ""},
        {"unit 7", "", "  UNIT  Its number\r\n"},
    };
    for (const auto& row : cases) {
        engine::Completion completion = complete(row.line);
        EXPECT_EQ(completion.insert, row.insert) << row.line;
        EXPECT_EQ(completion.listing, row.listing) << row.line;
    }
    told = {{"02-4e-50-50-00-01", ""}, {"02-4e-50-50-00-02", ""}};
    EXPECT_EQ(complete("unit 0").insert, "2-4e-50-50-00-0");
    EXPECT_EQ(complete("unit 02-4E-5").insert, "0-50-00-0") << "letters of both cases are equal";
    told = {{"5", ""}};
    EXPECT_EQ(complete("unit ").insert, "5 ") << "there is only one";
}

TEST_F(LiveValues, AreNotTrusted)
{
    told = {{"two words", ""}, {"", ""}, {"\x1b[J", ""}, {"good", ""}, {"\xff", ""}};
    EXPECT_EQ(complete("unit ").insert, "good ");
    told.clear();
    for (int i = 0; i < 20000; ++i)
        told.push_back({std::to_string(i), "x"});
    std::string text = help("unit ");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 1 + 64 + 1);
    EXPECT_NE(text.find("...  8128 more; TAB lists all\r\n"), std::string::npos) << text.substr(text.size() - 100);
}
