// The application: its release, its user, its events.
#pragma once

#include "c4d_basedocument.h"

// Release times 1000 plus the update.
LONG GetC4DVersion();
VERSIONTYPE GeGetVersionType();
OPERATINGSYSTEM GeGetCurrentOS();
Bool GeIsMainThread();

// One line in the console.
void GePrint(const String &text);
// Modal questions.
GEMB_R GeOutString(const String &text, GEMB flags);
// In the system's browser.
Bool GeOpenHTML(const String &address);

// The status line; percent 0 to 100.
void StatusSetBar(LONG percent);
void StatusClear();

// Ends the threads that draw and evaluate, before the scene is changed.
void StopAllThreads();
// Asks for an update, which comes when the host gets control back.
void EventAdd(EVENT flags = EVENT_0);
// Synchronous.
void CallCommand(LONG id);

// Data kept with the application's settings, under the plug-in's number: NULL until something was set; live, the
// host's.
BaseContainer *GetWorldPluginData(LONG id);
// add TRUE: written over the present entries; FALSE: instead of them.
Bool SetWorldPluginData(LONG id, const BaseContainer &data, Bool add = TRUE);
