// Dialogs, and what mouse and keyboard are doing.
#pragma once

#include "c4d_basecontainer.h"

// ---- Dialogs ------------------------------------------------------------------------------------------------------

void MessageDialog(const String &text);
// TRUE: yes.
Bool QuestionDialog(const String &text);
// TRUE: the text was changed.
Bool RenameDialog(String *text);

// ---- Input --------------------------------------------------------------------------------------------------------

// Codes of four letters, most significant first.
#define BFM_INPUT 1648971854           // bIPN
#define BFM_INPUT_MOUSE 1836021107     // mous
#define BFM_INPUT_KEYBOARD 1801812322  // keyb

// Entries of the state.
#define BFM_INPUT_QUALIFIER 1768976737    // ipqa: LONG, bits below
#define BFM_INPUT_DEVICE 1768973430       // ipdv: LONG
#define BFM_INPUT_CHANNEL 1768973153      // ipca: LONG, key or button
#define BFM_INPUT_VALUE 1768978017        // ipva: LONG, 1 = pressed
#define BFM_INPUT_X 1768978040            // ipvx: LONG
#define BFM_INPUT_Y 1768978041            // ipvy: LONG
#define BFM_INPUT_Z 1768978042            // ipvz: LONG
#define BFM_INPUT_ASC 1801548643          // kasc: String
#define BFM_INPUT_DOUBLECLICK 1768973410  // ipdb: Bool

// Channels of the mouse.
enum {
    BFM_INPUT_MOUSELEFT = 1,
    BFM_INPUT_MOUSERIGHT = 2,
    BFM_INPUT_MOUSEMIDDLE = 3,
    BFM_INPUT_MOUSEX1 = 5,
    BFM_INPUT_MOUSEX2 = 6,
    BFM_INPUT_MOUSEWHEEL = 100,
    BFM_INPUT_MOUSEMOVE = 101
};

// Bits of BFM_INPUT_QUALIFIER.
#define QSHIFT 1
#define QCTRL 2
#define QALT 4
#define QALT2 8

Bool GetInputState(LONG askdevice, LONG askchannel, BaseContainer &res);

// ---- Number formats of edit fields --------------------------------------------------------------------------------

#define FORMAT_REAL 1718773089     // frea
#define FORMAT_LONG 1718382183     // flng
#define FORMAT_PERCENT 1718641524  // fpct
#define FORMAT_DEGREE 1717856114   // fdgr
#define FORMAT_METER 1718445428    // fmet
#define FORMAT_FRAMES 1717989997   // ffrm
#define FORMAT_SECONDS 1718838627  // fsec
#define FORMAT_SMPTE 1718840688    // fsmp
