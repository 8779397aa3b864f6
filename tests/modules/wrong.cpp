// A module that is wrong on purpose: its tag makes one mistake, the one that TREMOLUX_WRONG names, when it is asked for
// a frame or told to.
#include "c4d.h"

namespace {

constexpr LONG kTag = 1000001, kDoWrong = 1000002;

enum Wrong {
    kUsesAFreedNode,
    kInsertsNothing,
    kTakesATagForAnObject,
    kTakesAnObjectForATrack,
    kUndoesInAnotherDocument,
    kMovesANodeOfAnotherDocument,
    kInsertsInAFrame,
    kRemovesInAFrame,
    kOpensAStepInAFrame,
    kAsksInAFrame,
    kQueuesAnEventInAFrame,
    kEvaluatesInAFrame,
    kKeysInAFrame,
    kSelectsInAFrame
};

// The handle as something that it is not.
template <typename Other>
Other *Mistake(BaseList2D *node) {
    return static_cast<Other *>(static_cast<void *>(node));
}

// `elsewhere`: an object of another document; NULL in a frame.
void DoWrong(Wrong wrong, BaseTag *tag, BaseDocument *doc, BaseObject *op, BaseObject *elsewhere) {
    switch (wrong) {
        case kUsesAFreedNode: {
            BaseObject *object = BaseObject::Alloc(Onull), *kept = object;
            BaseObject::Free(object);
            kept->GetMg();
            break;
        }
        case kInsertsNothing:
            doc->InsertObject(NULL, NULL, NULL);
            break;
        case kTakesATagForAnObject:
            Mistake<BaseObject>(tag)->GetMg();
            break;
        case kTakesAnObjectForATrack:
            op->InsertTrackSorted(Mistake<CTrack>(op));
            break;
        case kUndoesInAnotherDocument:
            doc->AddUndo(UNDOTYPE_CHANGE, elsewhere);
            break;
        case kMovesANodeOfAnotherDocument:
            doc->InsertObject(elsewhere, op, NULL);
            break;
        case kInsertsInAFrame: {
            BaseObject *object = BaseObject::Alloc(Onull);
            doc->InsertObject(object, NULL, NULL);
            BaseObject::Free(object);  // the host has not taken it
            break;
        }
        case kRemovesInAFrame: {
            CTrack *track = op->GetFirstCTrack();
            CTrack::Free(track);
            break;
        }
        case kOpensAStepInAFrame:
            doc->StartUndo();
            break;
        case kAsksInAFrame:
            QuestionDialog("Sure?");
            break;
        case kQueuesAnEventInAFrame:
            EventAdd();
            break;
        case kEvaluatesInAFrame:
            doc->ExecutePasses(NULL, TRUE, TRUE, TRUE, BUILDFLAGS_0);
            break;
        case kKeysInAFrame:
            op->GetFirstCTrack()->GetCurve()->AddKey(BaseTime(1, 30));
            break;
        case kSelectsInAFrame:
            doc->SetActiveObject(op);
            break;
    }
}

class WrongTag : public TagData {
  public:
    static NodeData *Alloc() { return gNew WrongTag; }
    virtual Bool Message(GeListNode *node, LONG type, void *data) {
        BaseTag *tag = (BaseTag *)node;
        if (type == kDoWrong) DoWrong(TREMOLUX_WRONG, tag, tag->GetDocument(), tag->GetObject(), (BaseObject *)data);
        return TRUE;
    }
    virtual EXECUTIONRESULT Execute(BaseTag *tag, BaseDocument *doc, BaseObject *op, BaseThread *, LONG,
                                    EXECUTIONFLAGS) {
        if (TREMOLUX_WRONG >= kInsertsInAFrame) DoWrong(TREMOLUX_WRONG, tag, doc, op, NULL);
        return EXECUTIONRESULT_OK;
    }
};

}  // namespace

Bool PluginStart(void) {
    return RegisterTagPlugin(kTag, "Wrong", TAG_EXPRESSION | TAG_VISIBLE, WrongTag::Alloc, "", NULL, 0);
}

void PluginEnd(void) {}

Bool PluginMessage(LONG, void *) { return TRUE; }
