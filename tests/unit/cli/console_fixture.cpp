// SPDX-License-Identifier: Apache-2.0
#include "console_fixture.h"

#include <cstdio>
#include <set>

#include "host/node_rules.h"
#include "refused_start.h"

RefusedStart refused_start;

namespace {

void start_remote_management_in_vain()
{
    sdk_sim::Fault fault;
    fault.operation = "REMOTE_NEPONU_assign_application_handler_function";
    EXPECT_TRUE(sdk_sim::inject(fault));
    refused_start.result = CLI_remote_management_init();
    engine::for_each_element(engine::Origin::Library, [](int, const cmd_element& element) {
        if (std::string_view(element.string).find("remote ") != std::string_view::npos) ++refused_start.remote_commands;
    });
}

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
        start_remote_management_in_vain();
        init_packages();
        return true;
    }();
    ASSERT_TRUE(is_active);
}

std::set<std::string>& executed()
{
    static std::set<std::string> commands;
    return commands;
}

std::string command_in_node(int node, const cmd_element& element)
{
    return std::string(node_name(node)) + " " + element.string;
}

// Proves at the end of a whole run that no installed command was left out.
class Walk : public ::testing::Environment {
  public:
    void TearDown() override
    {
        if (::testing::GTEST_FLAG(filter) != "*") return; // part of the suite proves nothing about all commands
        engine::for_each_element(engine::Origin::Library, [](int node, const cmd_element& element) {
            EXPECT_TRUE(executed().contains(command_in_node(node, element)))
                << "never executed: " << command_in_node(node, element);
        });
    }
};

[[maybe_unused]] const auto* const walk = ::testing::AddGlobalTestEnvironment(new Walk);

} // namespace

std::string laboratory(const std::vector<LabOnu>& onus, const std::string& tables)
{
    std::string scenario =
        "name = \"LAB\"\n[clock]\nspeed = 0\n" + tables + "\n[[olt]]\nid = 0\nmac = \"00-0a-c4-00-00-01\"\n";
    for (const LabOnu& onu : onus) {
        char address[18];
        snprintf(address, sizeof address, "02-00-00-00-00-%02x", static_cast<unsigned>(onu.id));
        scenario += "[[olt.onu]]\nid = " + std::to_string(onu.id) + "\nmac = \"" + address + "\"\n" + onu.keys + "\n";
    }
    return scenario + "[[olt]]\nid = 1\nmac = \"00-0a-c4-00-00-02\"\npresent = false\n";
}

Console::Console()
{
    activate_once();
    sdk_sim::reset();
    load(std::string(NETWORK));
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
    const int node = session->node;
    const engine::Outcome outcome = engine::execute(session, line);
    if (outcome.element != nullptr) executed().insert(command_in_node(node, *outcome.element));
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

void Console::enter_onu(int16_t onu_id, int node, int16_t olt_id)
{
    enter(node, olt_id);
    session->onu_id = onu_id;
    session->onu_by_index = 1;
}

void Console::load(const std::string& scenario)
{
    std::string error;
    EXPECT_TRUE(sdk_sim::load_scenario_text(scenario, "test", &error)) << error;
    journal();
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
