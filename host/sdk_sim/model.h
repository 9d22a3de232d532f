// SPDX-License-Identifier: Apache-2.0
// The modelled network: what its OLTs and ONUs are, what has been set on them, and the clock they live by.
//
// Everything here is guarded by the model's lock: it is reached through a ModelLock, in the body of an operation
// (gate.h), or in the action of a timer. Nothing that runs under the lock calls back into a host.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include <epon/sdk.h>

#include "host/sdk_sim/auth_list.h"
#include "host/sdk_sim/ctc_capabilities.h"
#include "host/sdk_sim/ctc_discovery.h"
#include "host/sdk_sim/ctc_identity.h"
#include "host/sdk_sim/ctc_loid.h"
#include "host/sdk_sim/ctc_power_save.h"
#include "host/sdk_sim/ctc_protection.h"
#include "host/sdk_sim/ctc_stack.h"
#include "host/sdk_sim/ctc_tx_power.h"
#include "host/sdk_sim/dba_control.h"
#include "host/sdk_sim/dot1x.h"
#include "host/sdk_sim/encryption_direction.h"
#include "host/sdk_sim/gpio.h"
#include "host/sdk_sim/grants.h"
#include "host/sdk_sim/i2c_register.h"
#include "host/sdk_sim/led.h"
#include "host/sdk_sim/link_test.h"
#include "host/sdk_sim/llid.h"
#include "host/sdk_sim/llid_encryption.h"
#include "host/sdk_sim/mdio.h"
#include "host/sdk_sim/mka.h"
#include "host/sdk_sim/mng_vlan.h"
#include "host/sdk_sim/oam_frames.h"
#include "host/sdk_sim/olt_settings.h"
#include "host/sdk_sim/onu_firmware.h"
#include "host/sdk_sim/onu_loopback.h"
#include "host/sdk_sim/optics.h"
#include "host/sdk_sim/pon_clock.h"
#include "host/sdk_sim/pon_transmission.h"
#include "host/sdk_sim/remote_alarms.h"
#include "host/sdk_sim/remote_device_mgmt.h"
#include "host/sdk_sim/remote_encryption.h"
#include "host/sdk_sim/remote_fec.h"
#include "host/sdk_sim/remote_frame_processing.h"
#include "host/sdk_sim/remote_mp_application.h"
#include "host/sdk_sim/remote_mpcp.h"
#include "host/sdk_sim/remote_oam_api.h"
#include "host/sdk_sim/remote_oam_statistics.h"
#include "host/sdk_sim/remote_periph.h"
#include "host/sdk_sim/remote_rstp_ldp.h"
#include "host/sdk_sim/remote_send_file.h"
#include "host/sdk_sim/remote_uni_mac.h"
#include "host/sdk_sim/self_test.h"
#include "host/sdk_sim/send_frame.h"
#include "host/sdk_sim/simple_operation.h"
#include "host/sdk_sim/uart.h"
#include "host/sdk_sim/xaui_redundancy.h"

namespace sdk_sim {

using Mac = std::array<std::uint8_t, 6>;
using Milliseconds = std::uint64_t; // of the virtual clock

inline constexpr std::int16_t BROADCAST_ONU = 4095;

// --- ONUs --------------------------------------------------------------------------------------------------------

enum class OnuRate : std::int32_t { Rate1G = 0, Rate10G1G = 1, Rate10G = 2 };

// What an ONU does with OAM requests of one organization.
enum class OamAnswer : std::int32_t {
    Answers,
    None,   // it has told that it does not speak them
    Silent, // it lets them go unanswered
};

// What is set on an ONU, family by family. It goes back to what the scenario says when the ONU loses its registration.
struct OnuConfiguration {
    EncryptionDirection encryption_direction;
    LinkSettings settings;
    LinkState link;
    LinkEncryption encryption;
    LinkTest link_test;
    OamFrames oam_frames;
    OnuLoopback loopback;
    LineProtection line_protection;
    PowerSave power_save;
    std::uint8_t activated_llids = 0; // 0: the first alone
    OnuDownload download;
    MkaLink mka;
    RemoteOam remote_oam;
    OnuAlarms alarms;
    OnuStatistics statistics;
    OnuManagement management;
    OnuAdc adc;
    MldApplication mld;
    FileTransfer file_transfer;
    RstpLdp rstp_ldp;
    RemoteEncryption remote_encryption;
    RemoteFec remote_fec;
    RemoteMpcp remote_mpcp;
    UniPort uni_port;
    FrameProcessing frame_processing;
    CtcOnu ctc;
};

struct Onu {
    std::int16_t id = 0; // index of the ONU and of its link
    Mac mac{};
    OnuRate rate = OnuRate::Rate1G;
    std::int32_t mode = ONU_MODE_UNREGISTERED;
    std::int32_t home_mode = ONU_MODE_UNREGISTERED; // the mode it takes when its OLT has started
    bool is_static = false;
    bool is_warned = false;                           // for a mode change
    Milliseconds registered_at = 0;                   // or the beginning of time, when it was so then
    std::uint32_t rtt = 0;                            // time quanta of 16 ns
    std::uint32_t frame_error_rate = 0;               // lost test frames in a million
    OamAnswer extended_oam = OamAnswer::Answers;      // of the CTC stack
    OamAnswer remote_management = OamAnswer::Answers; // of remote management
    std::string name, serial_number;                  // as the device tells them: any octets
    std::string loid, loid_password;                  // given to its subscriber; empty: none
    OnuIdentity identity;
    OnuCapabilities capabilities;
    OnuTransmitters transmitters;
    CtcDevice ctc_device;
    CtcOnuSettings remembered_ctc_settings; // of its last registration
    OnuImage image;
    OnuDevice device;
    UniPartner uni_partner;
    std::set<std::uint8_t> looped_ports; // user ports that somebody has connected with each other
    OnuConfiguration configuration, initial_configuration;
};

// --- OLTs --------------------------------------------------------------------------------------------------------

struct LoggingTopic {
    std::int32_t enabled = 0;
    std::int32_t level = 0;
};

// What is set on an OLT, family by family. A reset takes it back to what the scenario says.
struct OltConfiguration {
    OLT_update_parameters parameters{};
    SimpleOperations simple_operations;
    PonTransmission pon_transmission;
    PonClock pon_clock;
    MngVlan mng_vlan;
    OltSettings settings;
    XauiRedundancy xaui_redundancy;
    AuthList auth_list;
    LoidTable loid_table;
    DbaControl dba_control;
    OLT_802_1x_configuration dot1x{};
    Grants grants;
    std::int32_t loopback = OLT_LOOPBACK_NONE;
    MkaGlobal mka;
    SentFrames sent_frames;
    Gpio gpio;
    I2cBuses i2c_buses = fitted_modules();
    Leds leds{};
    Mdio mdio;
    SelfTest self_test;
    Uart uart;
    Optics optics;
    std::map<std::int32_t, LoggingTopic> logging; // by topic; a topic that is not listed is off
};

struct OltDevice {
    std::string name; // at most 31 octets
    std::uint8_t hardware_major = 0;
    std::uint8_t hardware_minor = 0;
    std::uint16_t llids_supported = ONU_INDEX_LIMIT;
    std::int32_t system_port_mac_type = 0;
    OLT_version firmware_version{};
    OLT_version host_version{};
};

// The firmware's own console.
struct FirmwareConsole {
    std::int32_t temperature = 0;                     // tenths of a degree Celsius
    std::map<std::uint32_t, std::uint32_t> registers; // by address
    std::vector<std::string> log;                     // as the firmware prints it: any octets
};

struct Olt {
    std::int16_t id = 0;
    bool is_known = false;   // the scenario has it
    bool is_powered = false; // not taken away
    bool is_present = false; // added, and not reset since
    bool recovery_fails = false;
    std::uint32_t start_count = 0; // tells timers of an earlier life apart
    Milliseconds started_at = 0;
    Mac mac{};
    OltDevice device;
    FirmwareConsole firmware_console;
    OltConfiguration configuration, initial_configuration;
    PreInitOperations pre_init_operations; // wait for its next start
    std::map<std::int16_t, Onu> onus;      // by index
};

// How the network lives by itself. An interval of 0 means never.
struct Life {
    std::uint64_t seed = 1;
    Milliseconds leave_interval = 0; // mean time between two ONUs' leaving
    Milliseconds absence = 30000;    // mean time until such an ONU is back
    Milliseconds alarm_interval = 0; // mean time between two alarms
    Milliseconds alarm_duration = 10000;
    Milliseconds start_time = 500;         // of an OLT, until it is operational
    Milliseconds registration_time = 1000; // of the first ONU, from there on
    Milliseconds registration_step = 10;   // between one ONU and the next
    Milliseconds return_time = 0;          // until an ONU that was sent away asks again; 0: it stays away
    Milliseconds restart_time = 3000;      // until an ONU that starts anew asks for registration
};

struct Network;

struct Timer {
    std::int16_t olt_id = -1; // -1: of the network
    std::uint32_t start_count = 0;
    std::function<void(Network&)> action;
};

struct Network {
    std::string name = "epon";
    double speed = 1; // virtual seconds in a second; 0: the clock moves only by advance_clock
    Life life;
    CtcStack ctc_stack, initial_ctc_stack;
    std::array<Olt, OLT_INDEX_LIMIT> olts;

    Milliseconds now = 0;
    std::multimap<Milliseconds, Timer> timers; // by time; those of the same time in the order in which they were set
    std::uint64_t random_state = 1;

    Network();
};

// Holds the model's lock, and runs the timers that became due before it was taken.
class ModelLock {
  public:
    ModelLock();
    Network& operator*() const;
    Network* operator->() const;

  private:
    std::unique_lock<std::mutex> lock;
};

// Puts another network in the place of the present one, timers included.
void replace_network(Network&& network);

// --- Questions of operations --------------------------------------------------------------------------------------

// Null when the OLT is unknown or absent.
Olt* present_olt(Network& network, std::int16_t olt_id);
// A link counts as registered in the two registered modes.
bool counts_as_registered(const Onu& onu);
// Null when there is no such ONU or it is not registered.
Onu* registered_onu(Olt& olt, std::int16_t onu_id);
std::uint16_t count_registered(const Olt& olt);

// --- The virtual clock --------------------------------------------------------------------------------------------

// Runs action after a time. The timer of an OLT is dropped when that OLT leaves the present state before.
void after(Network& network, Milliseconds delay, std::function<void(Network&)> action);
void after(Network& network, const Olt& olt, Milliseconds delay, std::function<void(Network&, Olt&)> action);

// Lets the clock run with the time of day, or stand still.
void run_clock(bool on);
// Seconds until the next timer is due, as the clock runs now; negative when there is none or the clock stands still.
double seconds_to_next_timer();

// The next number of the network's random sequence, 0..limit-1.
std::uint64_t random_below(Network& network, std::uint64_t limit);

} // namespace sdk_sim
