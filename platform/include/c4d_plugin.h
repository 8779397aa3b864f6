// The doors of a module: what its author writes, and what the host sends.
#pragma once

#include "ge_prepass.h"

// Oldest release of the interface that a module built with these headers can live in.
#define API_VERSION 14000

// Written by the plug-in's author.
Bool PluginStart(void);
void PluginEnd(void);
Bool PluginMessage(LONG id, void *data);

// ---- The one export -----------------------------------------------------------------------------------------------

#define C4DPL_INIT_SYS 1
#define C4DPL_INIT 2
#define C4DPL_END 3
#define C4DPL_INIT_VERSION 4
#define C4DPL_MESSAGE 6

#define C4DPL_VERSION 0x0005

#define C4DPL_ERROR (-1)
#define C4DPL_ERROR_TYPE (-2)
#define C4DPL_ERROR_VERSION (-3)
#define C4DPL_ERROR_OS (-4)
#define C4DPL_ERROR_MEM (-5)

// On Windows a list of the module's own makes it one: a mark in the code would make it one of every file that the
// module is linked into.
#ifdef _WIN32
#define C4D_EXPORT
#else
#define C4D_EXPORT __attribute__((visibility("default")))
#endif

extern "C" C4D_EXPORT LONG c4d_main(LONG action, void *p1, void *p2, void *p3);

// ---- Ids of PluginMessage (C4DPL_INIT_SYS arrives there too: time to initialise the resource) ----------------------

#define C4DMSG_PRIORITY 0
#define C4DPL_STARTACTIVITY 1000
#define C4DPL_ENDACTIVITY 1001
#define C4DPL_COMMANDLINEARGS 1002
#define C4DPL_EDITIMAGE 1003
#define C4DPL_ENDPROGRAM 1001084
#define C4DPL_BUILDMENU 1001188
#define C4DPL_DEVICECHANGE 1001190
#define C4DPL_RELOADPYTHONPLUGINS 1026963
#define C4DPL_ENDPLUGINACTIVITY0 1026848
#define C4DPL_ENDPLUGINACTIVITY1 200000272
#define C4DPL_ENDPLUGINACTIVITY2 200000276

// Answers C4DMSG_PRIORITY.
inline void SetPluginPriority(void *data, LONG priority) {
    if (data) *static_cast<LONG *>(data) = priority;
}
