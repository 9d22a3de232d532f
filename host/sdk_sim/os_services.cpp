// SPDX-License-Identifier: Apache-2.0
// Threads, and what the SDK reports for an OLT.
#include <memory>
#include <pthread.h>
#include <string>

#include "host/sdk_sim/gate.h"

namespace sdk_sim {

namespace {

constexpr int32_t LOGGING_TOPIC_LIMIT = 32;
constexpr int32_t LOGGING_LEVEL_LIMIT = 8;
constexpr std::size_t THREAD_NAME_LENGTH = 15;

const Operation create_thread("OSSRV_create_thread", GENERAL);
const Operation set_logging_configuration("Set_logging_configuration", GENERAL);

struct ThreadStart {
    std::string name;
    void* (*entry)(void*);
    void* argument;
};

void* run_thread(void* pointer)
{
    std::unique_ptr<ThreadStart> start(static_cast<ThreadStart*>(pointer));
    pthread_setname_np(pthread_self(), start->name.c_str());
    const auto entry = start->entry;
    void* argument = start->argument;
    start.reset();
    return entry(argument);
}

} // namespace

} // namespace sdk_sim

using namespace sdk_sim;

int16_t OSSRV_create_thread(const char* name, void* (*entry)(void*), void* argument)
{
    return without_model(create_thread, in(as_text(name)), out(), [&] {
        if (entry == nullptr) return PARAMETER_ERROR;
        auto start = std::make_unique<ThreadStart>(
            ThreadStart{std::string(name).substr(0, THREAD_NAME_LENGTH), entry, argument});
        pthread_attr_t attributes;
        if (pthread_attr_init(&attributes) != 0) return NO_RESOURCES;
        pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
        pthread_t created;
        const int refused = pthread_create(&created, &attributes, run_thread, start.get());
        pthread_attr_destroy(&attributes);
        if (refused != 0) return NO_RESOURCES;
        static_cast<void>(start.release()); // the thread's own now
        return SUCCESS;
    });
}

int16_t Set_logging_configuration(int32_t topic, int32_t enable, int32_t level, int16_t olt_id)
{
    return on_olt(set_logging_configuration, olt_id, in(topic, enable, level, olt_id), out(), [&](Olt& olt) {
        if (topic < 0 || topic >= LOGGING_TOPIC_LIMIT || enable < 0 || enable > 1 || level < 0 ||
            level >= LOGGING_LEVEL_LIMIT)
            return PARAMETER_ERROR;
        olt.configuration.logging[topic] = {enable, level};
        return SUCCESS;
    });
}
