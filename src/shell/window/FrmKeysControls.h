// Identifiers of the window that gives keys to commands.
#pragma once

#define IDD_FRM_KEYS 3230
#define LstKeys 3231
#define LblKey 3232
#define TxtKey 3233
#define CmdAssignKey 3234
#define CmdClearKey 3235
#define CmdRestoreKey 3236
#define LblKeyAnswer 3237
#define LblKeys 3238
