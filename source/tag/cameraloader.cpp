#include "tag/cameraloader.h"

#include "tag/tremoluxcam.h"

namespace {

constexpr Real kModuleVersion = 1.015;
const CHAR *const kName = "TremoluxCam";
const CHAR *const kIconFile = "Tremolux_Cam_Icon.png";

// By the host's version type and operating system; what is not listed stays empty in the banner.
const CHAR *const kVersionTypes[] = {"Prime",
                                     "Bodypaint",
                                     "Studio",
                                     "Visualize",
                                     "Broadcast",
                                     "Benchmark",
                                     "Updater",
                                     "Installer",
                                     "New Client",
                                     "Net Server 3",
                                     "Net Server Unlimited",
                                     "Unknown",
                                     "License Server"};
const CHAR *const kOperatingSystems[] = {"", "Windows", "OS X", "UNIX"};

template <LONG count>
const CHAR *NameOf(const CHAR *const (&names)[count], LONG code) {
    return code >= 0 && code < count ? names[code] : "";
}

String Banner() {
    return String("TremoluxCam V(") + RealToString(kModuleVersion) + "), " + LongToString(GetC4DVersion()) + " " +
           NameOf(kVersionTypes, (LONG)GeGetVersionType()) + ", " + NameOf(kOperatingSystems, (LONG)GeGetCurrentOS());
}

class TremoluxCommand : public CommandData {};

}  // namespace

Bool RegisterTremoluxCam() {
    AutoAlloc<BaseBitmap> icon;
    if (!icon) return FALSE;
    if (icon->Init(GeGetPluginPath() + Filename("res") + Filename(kIconFile)) != IMAGERESULT_OK) return FALSE;
    GePrint(Banner());
    return RegisterTagPlugin(kTremoluxCamId, kName, TAG_VISIBLE | TAG_EXPRESSION, TremoluxCamClass::Alloc, kName, icon,
                             0);
}

Bool RegisterTremoluxCommand() {
    AutoBitmap icon(kIconFile);
    TremoluxCommand *command = gNew TremoluxCommand;
    if (!command) return FALSE;
    if (RegisterCommandPlugin(kTremoluxCommandId, kName, 0, icon, String(), command)) return TRUE;
    gDelete(command);
    return FALSE;
}
