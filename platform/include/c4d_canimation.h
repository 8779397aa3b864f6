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
    const DescID GetDescriptionID() const;

    // NULL when there is none and none is to be made.
    CCurve *GetCurve(CCURVE type = CCURVE_CURVE, Bool create = TRUE);
    // Loop modes applied.
    Real GetValue(BaseDocument *doc, const BaseTime &time, LONG fps);

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
    // The curve owns the key; one that stands at that time already is answered.
    CKey *AddKey(const BaseTime &time, LONG *index = NULL);
    // Before the first and after the last key their values hold; 0 without keys.
    Real GetValue(const BaseTime &time, LONG fps) const;

  private:
    CCurve();
    ~CCurve();
};

class CKey : public GeListNode {
  public:
    BaseTime GetTime() const;
    // `curve` is the one the key stands in.
    void SetValue(CCurve *curve, Real value);

  private:
    CKey();
    ~CKey();
};
