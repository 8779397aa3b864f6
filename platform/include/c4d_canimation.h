// Tracks, curves and keys. Values are radians, scene units, fractions; times run in the document's seconds.
#pragma once

#include "c4d_baselist.h"

class CTrack : public BaseList2D {
  public:
    // Not inserted; NULL when the parameter cannot be animated.
    static CTrack *Alloc(BaseList2D *node, const DescID &id);
    // Removes it first; fetch GetNext() before.
    static void Free(CTrack *&track);

    CTrack *GetNext() const;
    CTrack *GetPred() const;
    BaseList2D *GetObject() const;
    const DescID GetDescriptionID() const;

    // NULL when there is none and none is to be made.
    CCurve *GetCurve(CCURVE type = CCURVE_CURVE, Bool create = TRUE);
    // CTRACK_CATEGORY_
    LONG GetTrackCategory() const;
    // Loop modes applied.
    Real GetValue(BaseDocument *doc, const BaseTime &time, LONG fps);
    CLOOP GetBefore() const;
    CLOOP GetAfter() const;
    void SetBefore(CLOOP loop);
    void SetAfter(CLOOP loop);
    // Sets the key from the parameter's present value.
    Bool FillKey(BaseDocument *doc, BaseList2D *node, CKey *key);

  private:
    CTrack();
    ~CTrack();
};

class CCurve : public BaseList2D {
  public:
    LONG GetKeyCount() const;
    // By time; NULL out of range.
    CKey *GetKey(LONG index);
    const CKey *GetKey(LONG index) const;
    CKey *FindKey(const BaseTime &time, LONG *index = NULL, FINDANIM match = FINDANIM_EXACT);
    // The curve owns the key; one that stands at that time already is answered.
    CKey *AddKey(const BaseTime &time, LONG *index = NULL);
    // Takes the key over.
    Bool InsertKey(CKey *key);
    Bool DelKey(LONG index);
    void FlushKeys();
    // Before the first and after the last key their values hold; 0 without keys.
    Real GetValue(const BaseTime &time, LONG fps) const;
    CTrack *GetTrack();

  private:
    CCurve();
    ~CCurve();
};

// Tangents are offsets from the key, in time and in value. `curve` is the one the key stands in; NULL for a free key.
class CKey : public GeListNode {
  public:
    static CKey *Alloc();
    static void Free(CKey *&key);
    CKey *GetClone(AliasTrans *translation) const;

    BaseTime GetTime() const;
    Real GetValue() const;
    BaseTime GetTimeLeft() const;
    BaseTime GetTimeRight() const;
    Real GetValueLeft() const;
    Real GetValueRight() const;
    CINTERPOLATION GetInterpolation() const;

    void SetTime(CCurve *curve, const BaseTime &time);
    void SetValue(CCurve *curve, Real value);
    void SetTimeLeft(CCurve *curve, const BaseTime &time);
    void SetTimeRight(CCurve *curve, const BaseTime &time);
    void SetValueLeft(CCurve *curve, Real value);
    void SetValueRight(CCurve *curve, Real value);
    void SetInterpolation(CCurve *curve, CINTERPOLATION interpolation);

    // Of data tracks.
    const GeData &GetGeData() const;
    void SetGeData(CCurve *curve, const GeData &data);

    CTrack *GetTrack();
    CCurve *GetCurve();

  private:
    CKey();
    ~CKey();
};
