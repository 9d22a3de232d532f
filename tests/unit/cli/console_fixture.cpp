// SPDX-License-Identifier: Apache-2.0
#include "console_fixture.h"

#include "host/node_rules.h"

namespace {

// The library installs its commands once in a process.
void activate_once()
{
    static const bool is_active = [] {
        engine::Options options;
        options.host_name = "LAB";
        options.serve = false;
        std::string error;
        EXPECT_TRUE(engine::prepare(options, &error)) << error;
        install_node_rules();
        CLI_activate();
        return true;
    }();
    ASSERT_TRUE(is_active);
}

} // namespace

Console::Console()
{
    activate_once();
    sdk_sim::reset();
    std::string error;
    EXPECT_TRUE(sdk_sim::load_scenario_text(NETWORK, "test", &error)) << error;
    sdk_sim::record_journal(true);
    session = engine::open_memory_session();
    enter(CONFIG_NODE);
}

Console::~Console()
{
    engine::close_session(session);
    sdk_sim::reset();
}

std::string Console::type(std::string_view line)
{
    const engine::Outcome outcome = engine::execute(session, line);
    status = outcome.status;
    result = outcome.result;
    return engine::take_output(session);
}

std::string Console::call(cmd_handler* handler, std::vector<std::string> words)
{
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    if (session->buf == nullptr) session->buf = "";
    result = handler(nullptr, session, static_cast<int>(words.size()), argv.data());
    return engine::take_output(session);
}

void Console::enter(int node, int16_t olt_id)
{
    session->node = node;
    session->olt_id = olt_id;
}

void Console::inject(const char* operation, int16_t code, uint32_t count, uint32_t skip)
{
    sdk_sim::Fault fault;
    fault.operation = operation;
    fault.code = code;
    fault.count = count;
    fault.skip = skip;
    ASSERT_TRUE(sdk_sim::inject(fault)) << operation;
}
