// SPDX-License-Identifier: Apache-2.0
#include "host/sdk_sim/olt_settings.h"

#include <cstdint>
#include <limits>

#include "host/sdk_sim/gate.h"
#include "host/sdk_sim/scenario_reader.h"

namespace sdk_sim {

namespace {

// A number that is stored as it was set, when it is in range.
template <class Record>
struct Setting {
    Setting(const char* set_name, const char* get_name, int32_t Record::*member, int32_t lowest, int32_t highest)
        : set(set_name, GENERAL), get(get_name, GENERAL), value(member), min(lowest), max(highest)
    {
    }

    Operation set;
    Operation get;
    int32_t Record::*value;
    int32_t min;
    int32_t max;
};

using OltSetting = Setting<OltSettings>;
using LinkSetting = Setting<LinkSettings>;

const OltSetting ref_clock("NEP_set_ref_clock", "NEP_get_ref_clock", &OltSettings::ref_clock,
                           REF_CLOCK_125_SINGLE_ENDED, REF_CLOCK_161_13_SINGLE_ENDED);
const OltSetting flavor_edk("NEP_set_olt_flavor_edk_type", "NEP_get_olt_flavor_edk_type", &OltSettings::flavor_edk,
                            FLAVOR_EDK_TYPE_1, FLAVOR_EDK_DEFAULT_USER);
const OltSetting interface_mtu("NEP_set_olt_interface_mtu", "NEP_get_olt_interface_mtu", &OltSettings::interface_mtu,
                               INTERFACE_MTU_MIN, INTERFACE_MTU_MAX);
const OltSetting ne_mode("NEP_set_olt_ne_mode", "NEP_get_olt_ne_mode", &OltSettings::ne_mode, NE_MODE_1, NE_MODE_4);
const OltSetting rules_for_dereg_llids("NEP_set_enable_rules_for_dereg_llids", "NEP_get_enable_rules_for_dereg_llids",
                                       &OltSettings::rules_for_dereg_llids, 0, 1);
const OltSetting nack_control("NEP_set_nack_control", "NEP_get_nack_control", &OltSettings::nack_control, 0, 1);
const OltSetting dba_allocation_overhead("NEP_set_dba_allocation_overhead_mode", "NEP_get_dba_allocation_overhead_mode",
                                         &OltSettings::dba_allocation_overhead, DBA_OVERHEAD_AUTO, DBA_OVERHEAD_LEGACY);
const OltSetting duplicate_mac_handling("NEP_set_duplicate_mac_handle_mode", "NEP_get_duplicate_mac_handle_mode",
                                        &OltSettings::duplicate_mac_handling, DUPLICATE_MAC_STANDARD,
                                        DUPLICATE_MAC_DEREGISTER);
const OltSetting mac_migration_report("NEP_set_mac_migration_event_report_mode",
                                      "NEP_get_mac_migration_event_report_mode", &OltSettings::mac_migration_report,
                                      MAC_MIGRATION_NONE, MAC_MIGRATION_LIMITED);
const OltSetting anti_spoofing("NEP_set_olt_anti_spoofing_mode", "NEP_get_olt_anti_spoofing_mode",
                               &OltSettings::anti_spoofing, ANTI_SPOOFING_SINGLE, ANTI_SPOOFING_RANGE);
const OltSetting mpcp_timeout("NEP_set_mpcp_timeout", "NEP_get_mpcp_timeout", &OltSettings::mpcp_timeout,
                              MPCP_TIMEOUT_MIN, MPCP_TIMEOUT_MAX);
const OltSetting oam_timeout("NEP_set_standard_oam_timeout", "NEP_get_standard_oam_timeout", &OltSettings::oam_timeout,
                             OAM_TIMEOUT_MIN, OAM_TIMEOUT_MAX);
const LinkSetting oam_keepalive("NEP_set_standard_oam_keepalive_state", "NEP_get_standard_oam_keepalive_state",
                                &LinkSettings::oam_keepalive, 0, 1);

const Operation set_oam_configuration("NEP_set_oam_configuration", GENERAL);

template <class Record>
int16_t store(Record& record, const Setting<Record>& setting, int32_t value)
{
    if (value < setting.min || value > setting.max) return PARAMETER_ERROR;
    record.*setting.value = value;
    return SUCCESS;
}

int16_t set(const OltSetting& setting, int16_t olt_id, int32_t value)
{
    return on_olt(setting.set, olt_id, in(olt_id, value), out(),
                  [&](Olt& olt) { return store(olt.configuration.settings, setting, value); });
}

int16_t get(const OltSetting& setting, int16_t olt_id, int32_t* value)
{
    return on_olt(setting.get, olt_id, in(olt_id), out(value), [&](Olt& olt) {
        *value = olt.configuration.settings.*setting.value;
        return SUCCESS;
    });
}

int16_t set(const LinkSetting& setting, int16_t olt_id, int16_t llid, int32_t value)
{
    return on_onu(setting.set, olt_id, llid, in(olt_id, llid, value), out(),
                  [&](Olt&, Onu& onu) { return store(onu.configuration.settings, setting, value); });
}

int16_t get(const LinkSetting& setting, int16_t olt_id, int16_t llid, int32_t* value)
{
    return on_onu(setting.get, olt_id, llid, in(olt_id, llid), out(value), [&](Olt&, Onu& onu) {
        *value = onu.configuration.settings.*setting.value;
        return SUCCESS;
    });
}

} // namespace

// A scenario may hold values that no command sets, to see how they are shown.
void read_olt_settings(ScenarioReader& reader, OltSettings* settings)
{
    const auto number = [&](const char* key, int32_t OltSettings::*value) {
        reader.number(key, 0, std::numeric_limits<int32_t>::max(), &(settings->*value));
    };
    number("ref_clock", &OltSettings::ref_clock);
    number("flavor_edk", &OltSettings::flavor_edk);
    number("interface_mtu", &OltSettings::interface_mtu);
    number("ne_mode", &OltSettings::ne_mode);
    number("rules_for_dereg_llids", &OltSettings::rules_for_dereg_llids);
    number("nack_control", &OltSettings::nack_control);
    number("dba_allocation_overhead", &OltSettings::dba_allocation_overhead);
    number("duplicate_mac_handling", &OltSettings::duplicate_mac_handling);
    number("mac_migration_report", &OltSettings::mac_migration_report);
    number("anti_spoofing", &OltSettings::anti_spoofing);
    number("mpcp_timeout", &OltSettings::mpcp_timeout);
    number("oam_timeout", &OltSettings::oam_timeout);
}

} // namespace sdk_sim

using namespace sdk_sim;

int16_t NEP_set_ref_clock(int16_t olt_id, int32_t clock)
{
    return set(ref_clock, olt_id, clock);
}

int16_t NEP_get_ref_clock(int16_t olt_id, int32_t* clock)
{
    return get(ref_clock, olt_id, clock);
}

int16_t NEP_set_olt_flavor_edk_type(int16_t olt_id, int32_t flavor)
{
    return set(flavor_edk, olt_id, flavor);
}

int16_t NEP_get_olt_flavor_edk_type(int16_t olt_id, int32_t* flavor)
{
    return get(flavor_edk, olt_id, flavor);
}

int16_t NEP_set_olt_interface_mtu(int16_t olt_id, int32_t mtu)
{
    return set(interface_mtu, olt_id, mtu);
}

int16_t NEP_get_olt_interface_mtu(int16_t olt_id, int32_t* mtu)
{
    return get(interface_mtu, olt_id, mtu);
}

int16_t NEP_set_olt_ne_mode(int16_t olt_id, int32_t mode)
{
    return set(ne_mode, olt_id, mode);
}

int16_t NEP_get_olt_ne_mode(int16_t olt_id, int32_t* mode)
{
    return get(ne_mode, olt_id, mode);
}

int16_t NEP_set_enable_rules_for_dereg_llids(int16_t olt_id, int32_t enable)
{
    return set(rules_for_dereg_llids, olt_id, enable);
}

int16_t NEP_get_enable_rules_for_dereg_llids(int16_t olt_id, int32_t* enable)
{
    return get(rules_for_dereg_llids, olt_id, enable);
}

int16_t NEP_set_nack_control(int16_t olt_id, int32_t enable)
{
    return set(nack_control, olt_id, enable);
}

int16_t NEP_get_nack_control(int16_t olt_id, int32_t* enable)
{
    return get(nack_control, olt_id, enable);
}

int16_t NEP_set_dba_allocation_overhead_mode(int16_t olt_id, int32_t mode)
{
    return set(dba_allocation_overhead, olt_id, mode);
}

int16_t NEP_get_dba_allocation_overhead_mode(int16_t olt_id, int32_t* mode)
{
    return get(dba_allocation_overhead, olt_id, mode);
}

int16_t NEP_set_duplicate_mac_handle_mode(int16_t olt_id, int32_t mode)
{
    return set(duplicate_mac_handling, olt_id, mode);
}

int16_t NEP_get_duplicate_mac_handle_mode(int16_t olt_id, int32_t* mode)
{
    return get(duplicate_mac_handling, olt_id, mode);
}

int16_t NEP_set_mac_migration_event_report_mode(int16_t olt_id, int32_t mode)
{
    return set(mac_migration_report, olt_id, mode);
}

int16_t NEP_get_mac_migration_event_report_mode(int16_t olt_id, int32_t* mode)
{
    return get(mac_migration_report, olt_id, mode);
}

int16_t NEP_set_olt_anti_spoofing_mode(int16_t olt_id, int32_t mode)
{
    return set(anti_spoofing, olt_id, mode);
}

int16_t NEP_get_olt_anti_spoofing_mode(int16_t olt_id, int32_t* mode)
{
    return get(anti_spoofing, olt_id, mode);
}

int16_t NEP_set_mpcp_timeout(int16_t olt_id, int32_t timeout)
{
    return set(mpcp_timeout, olt_id, timeout);
}

int16_t NEP_get_mpcp_timeout(int16_t olt_id, int32_t* timeout)
{
    return get(mpcp_timeout, olt_id, timeout);
}

int16_t NEP_set_standard_oam_timeout(int16_t olt_id, int32_t timeout)
{
    return set(oam_timeout, olt_id, timeout);
}

int16_t NEP_get_standard_oam_timeout(int16_t olt_id, int32_t* timeout)
{
    return get(oam_timeout, olt_id, timeout);
}

int16_t NEP_set_standard_oam_keepalive_state(int16_t olt_id, int16_t llid, int32_t enable)
{
    return set(oam_keepalive, olt_id, llid, enable);
}

int16_t NEP_get_standard_oam_keepalive_state(int16_t olt_id, int16_t llid, int32_t* enable)
{
    return get(oam_keepalive, olt_id, llid, enable);
}

int16_t NEP_set_oam_configuration(int16_t olt_id, int32_t rate_limited)
{
    return on_olt(set_oam_configuration, olt_id, in(olt_id, rate_limited), out(), [&](Olt& olt) {
        if (rate_limited != 0 && rate_limited != 1) return PARAMETER_ERROR;
        olt.configuration.settings.oam_rate_limited = rate_limited;
        return SUCCESS;
    });
}
