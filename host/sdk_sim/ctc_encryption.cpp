// SPDX-License-Identifier: Apache-2.0
// Encryption that the CTC stack drives: a key of the ONU's making, and the next one when its time has come.
#include "host/sdk_sim/ctc_encryption.h"

#include <algorithm>

#include "host/sdk_sim/ctc_events.h"
#include "host/sdk_sim/events.h"
#include "host/sdk_sim/link_operation.h"
#include "host/sdk_sim/llid_encryption.h"
#include "host/sdk_sim/onu_oam.h"

namespace sdk_sim {

namespace {

const Operation set_timing("CTC_STACK_set_encryption_timing", CTC_STACK);
const Operation get_timing("CTC_STACK_get_encryption_timing", CTC_STACK);
const Operation set_timing_threshold("CTC_STACK_set_encryption_timing_threshold", CTC_STACK);
const Operation get_timing_threshold("CTC_STACK_get_encryption_timing_threshold", CTC_STACK);
const Operation set_update_time("CTC_STACK_set_encryption_update_time", CTC_STACK);
const Operation get_update_time("CTC_STACK_get_encryption_update_time", CTC_STACK);
const Operation start_encryption("CTC_STACK_start_encryption", CTC_STACK);
const Operation stop_encryption("CTC_STACK_stop_encryption", CTC_STACK);

constexpr Milliseconds KEY_EXCHANGE_TIME_MS = 50;
constexpr std::uint16_t NO_REPLY_TIMEOUT_LIMIT = 2550;

std::uint32_t update_key_timeout(const CtcStack& stack, const Onu& onu)
{
    return onu.configuration.ctc.settings.key_timing.update_key_timeout.value_or(stack.update_key_time * 1000U);
}

std::uint32_t re_transmit_timeout(const CtcStack& stack, const Onu& onu)
{
    return onu.configuration.ctc.settings.key_timing.re_transmit_timeout.value_or(stack.no_reply_timeout);
}

void raise_state(const Olt& olt, const Onu& onu, CtcEncryptionState state)
{
    raise(ctc_event_kind(CTC_EVENT_UPDATE_ENCRYPTION), olt.id, CtcEncryptionEvent{onu.id, state});
}

// Goes on with an encryption after a time, unless it was stopped, or lost with the ONU, before.
void go_on_after(Network& network, const Olt& olt, const Onu& onu, Milliseconds delay,
                 void (*go_on)(Network&, const Olt&, Onu&))
{
    const std::uint32_t run = onu.configuration.ctc.encryption.run;
    after_on_link(network, olt, onu.id, delay, [run, go_on](Network& later, const Olt& of_onu, Onu& encrypted) {
        if (encrypted.configuration.ctc.encryption.run == run) go_on(later, of_onu, encrypted);
    });
}

void request_key(Network& network, const Olt& olt, Onu& onu);

void use_key(Network& network, const Olt& olt, Onu& onu)
{
    CtcEncryption& encryption = onu.configuration.ctc.encryption;
    encryption.state = CtcEncryption::On;
    encryption.unanswered = 0;
    encrypt_with_new_key(network, olt, onu);
    raise_state(olt, onu, CTC_ENCRYPTION_COMPLETE);
    const Milliseconds life = update_key_timeout(network.ctc_stack, onu);
    if (life != 0) go_on_after(network, olt, onu, life, request_key);
}

void miss_key(Network& network, const Olt& olt, Onu& onu)
{
    CtcEncryption& encryption = onu.configuration.ctc.encryption;
    if (++encryption.unanswered < network.ctc_stack.start_encryption_threshold) {
        request_key(network, olt, onu);
        return;
    }
    encryption = {};
    encryption.state = CtcEncryption::Failed;
    end_link_encryption(olt, onu);
    raise_state(olt, onu, CTC_ENCRYPTION_FAILED);
}

void request_key(Network& network, const Olt& olt, Onu& onu)
{
    if (onu.ctc_device.gives_keys)
        go_on_after(network, olt, onu, KEY_EXCHANGE_TIME_MS, use_key);
    else
        go_on_after(network, olt, onu, std::max(1U, re_transmit_timeout(network.ctc_stack, onu)), miss_key);
}

std::int16_t begin(Network& network, Olt& olt, Onu& onu)
{
    CtcEncryption& encryption = onu.configuration.ctc.encryption;
    if (encryption.state == CtcEncryption::Starting || encryption.state == CtcEncryption::On) return SUCCESS;
    encryption = {CtcEncryption::Starting, ++network.ctc_stack.last_run, 0};
    request_key(network, olt, onu);
    return SUCCESS;
}

} // namespace

void stop_ctc_encryption(const Olt& olt, Onu& onu)
{
    CtcEncryption& encryption = onu.configuration.ctc.encryption;
    const bool was_on = encryption.state == CtcEncryption::On;
    encryption = {};
    if (was_on) end_link_encryption(olt, onu);
}

void stop_all_ctc_encryption(Network& network)
{
    for (Olt& olt : network.olts)
        for (auto& [id, onu] : olt.onus)
            stop_ctc_encryption(olt, onu);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t CTC_STACK_set_encryption_timing(uint8_t update_key_time, uint16_t no_reply_timeout)
{
    return on_network(set_timing, in(update_key_time, no_reply_timeout), out(), [&](Network& network) {
        if (no_reply_timeout > NO_REPLY_TIMEOUT_LIMIT) return PARAMETER_ERROR;
        network.ctc_stack.update_key_time = update_key_time;
        network.ctc_stack.no_reply_timeout = no_reply_timeout;
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_encryption_timing(uint8_t* update_key_time, uint16_t* no_reply_timeout)
{
    return on_network(get_timing, in(), out(update_key_time, no_reply_timeout), [&](Network& network) {
        *update_key_time = network.ctc_stack.update_key_time;
        *no_reply_timeout = network.ctc_stack.no_reply_timeout;
        return SUCCESS;
    });
}

int16_t CTC_STACK_set_encryption_timing_threshold(uint8_t start_encryption_threshold)
{
    return on_network(set_timing_threshold, in(start_encryption_threshold), out(), [&](Network& network) {
        network.ctc_stack.start_encryption_threshold = start_encryption_threshold;
        return SUCCESS;
    });
}

int16_t CTC_STACK_get_encryption_timing_threshold(uint8_t* start_encryption_threshold)
{
    return on_network(get_timing_threshold, in(), out(start_encryption_threshold), [&](Network& network) {
        *start_encryption_threshold = network.ctc_stack.start_encryption_threshold;
        return SUCCESS;
    });
}

int16_t CTC_STACK_set_encryption_update_time(int16_t olt_id, int16_t onu_id, uint32_t update_key_timeout,
                                             uint32_t re_transmit_timeout)
{
    const auto arguments = in(olt_id, onu_id, update_key_timeout, re_transmit_timeout);
    return on_managed_onus(
        set_update_time, &Onu::extended_oam, olt_id, onu_id, arguments, out(), [&](Network&, Olt&, Onu& onu) {
            if (update_key_timeout > CTC_ENCRYPTION_TIMEOUT_MAX || re_transmit_timeout > CTC_ENCRYPTION_TIMEOUT_MAX)
                return PARAMETER_ERROR;
            onu.configuration.ctc.settings.key_timing = {update_key_timeout, re_transmit_timeout};
            return SUCCESS;
        });
}

int16_t CTC_STACK_get_encryption_update_time(int16_t olt_id, int16_t onu_id, uint32_t* update_key_timeout,
                                             uint32_t* re_transmit_timeout)
{
    return on_managed_onu(get_update_time, &Onu::extended_oam, olt_id, onu_id, in(olt_id, onu_id),
                          out(update_key_timeout, re_transmit_timeout), [&](Network& network, Olt&, Onu& onu) {
                              *update_key_timeout = sdk_sim::update_key_timeout(network.ctc_stack, onu);
                              *re_transmit_timeout = sdk_sim::re_transmit_timeout(network.ctc_stack, onu);
                              return SUCCESS;
                          });
}

int16_t CTC_STACK_start_encryption(int16_t olt_id, int16_t onu_id)
{
    return on_managed_onus(start_encryption, &Onu::extended_oam, olt_id, onu_id, in(olt_id, onu_id), out(), begin);
}

int16_t CTC_STACK_stop_encryption(int16_t olt_id, int16_t onu_id)
{
    return on_managed_onus(stop_encryption, &Onu::extended_oam, olt_id, onu_id, in(olt_id, onu_id), out(),
                           [](Network&, Olt& olt, Onu& onu) {
                               stop_ctc_encryption(olt, onu);
                               return SUCCESS;
                           });
}
