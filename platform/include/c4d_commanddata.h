#pragma once

#include "c4d_basedata.h"
#include "c4d_basedocument.h"

class CommandData : public BaseData {
  public:
    // `doc` is the active document.
    virtual Bool Execute(BaseDocument *doc);
    virtual Bool ExecuteSubID(BaseDocument *doc, LONG subid);
    virtual Bool ExecuteOptionID(BaseDocument *doc, LONG plugid, LONG subid);
    // CMD_ENABLED and the check state.
    virtual LONG GetState(BaseDocument *doc);
    virtual Bool GetSubContainer(BaseDocument *doc, BaseContainer &submenu);
    virtual Bool RestoreLayout(void *secret);
    virtual Bool Message(LONG type, void *data);
    virtual String GetScriptName();
};

// On success `dat` belongs to the host, which destroys it at its end; on failure it stays the caller's. FALSE when
// `dat` is NULL. The host copies the icon.
Bool RegisterCommandPlugin(LONG id, const String &str, LONG info, BaseBitmap *icon, const String &help,
                           CommandData *dat);
