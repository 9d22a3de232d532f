/* SPDX-License-Identifier: Apache-2.0 */
/* MLD snooping as an application in the ONU (RFC 4541 section 3). Errors and refusals as in remote_oam_api.h. */
#ifndef EPON_SDK_REMOTE_MP_APPLICATION_H
#define EPON_SDK_REMOTE_MP_APPLICATION_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct REMOTE_mld_version {
    uint16_t major;
    uint16_t minor;
    uint16_t build;
} REMOTE_mld_version;

int16_t REMOTE_NEPONU_mp_mld_get_version(int16_t olt_id, int16_t onu_id, REMOTE_mld_version* version);
/* Starts the application; EVENT_MULTICAST_GROUP_CHANGED tells of the groups that are joined. -13010: it runs. */
int16_t REMOTE_NEPONU_mp_mld_init(int16_t olt_id, int16_t onu_id);
/* Stops it, which leaves all groups. -13008: it does not run. */
int16_t REMOTE_NEPONU_mp_mld_terminate(int16_t olt_id, int16_t onu_id);

#ifdef __cplusplus
}
#endif

#endif
