// An ordered list of values, each under a number. Any LONG may be a number, negative ones too. Copies are deep.
#pragma once

#include "c4d_gedata.h"

class BaseContainer {
  public:
    BaseContainer() : body_(NULL), id_(0), dirty_(0) {}
    explicit BaseContainer(LONG id) : body_(NULL), id_(id), dirty_(0) {}
    BaseContainer(const BaseContainer &other);
    ~BaseContainer();
    BaseContainer &operator=(const BaseContainer &other);

    // Links inside are re-targeted by `translation`, which may be NULL.
    Bool CopyTo(BaseContainer *destination, COPYFLAGS flags, AliasTrans *translation) const;

    // Removes all entries and keeps the container's own number.
    void FlushAll();
    LONG GetId() const { return id_; }
    void SetId(LONG id) { id_ = id; }
    // Grows with every write.
    ULONG GetDirty() const { return dirty_; }

    Bool RemoveData(LONG id);
    // Number at the position; NOTOK past the end.
    LONG GetIndexId(LONG index) const;
    // Live; NULL past the end.
    GeData *GetIndexData(LONG index) const;
    // NULL when absent.
    const GeData *GetDataPointer(LONG id) const;
    // DA_NIL when absent.
    const GeData &GetData(LONG id) const;
    // Replaces in place, or appends.
    GeData *SetData(LONG id, const GeData &data);
    // Same numbers, order and values; the containers' own numbers do not count.
    Bool operator==(const BaseContainer &other) const;
    Bool operator!=(const BaseContainer &other) const { return !(*this == other); }
    // DA_NIL when absent.
    LONG GetType(LONG id) const;
    // Sets every entry of `source`.
    void MergeContainer(const BaseContainer &source);

    // Whole numbers, reals and Bools convert into one another (a real is cut toward zero and to the range, no number
    // is 0, any number but 0 is TRUE). An absent entry and one of another type give `preset`.
    Bool GetBool(LONG id, Bool preset = FALSE) const;
    LONG GetLong(LONG id, LONG preset = 0) const;
    Real GetReal(LONG id, Real preset = 0.0) const;
    Vector GetVector(LONG id, const Vector &preset = Vector()) const;
    String GetString(LONG id, const String &preset = String()) const;
    Filename GetFilename(LONG id, const Filename &preset = Filename()) const;
    BaseTime GetTime(LONG id, const BaseTime &preset = BaseTime()) const;
    BaseContainer GetContainer(LONG id) const;
    // Live, gone with the entry; NULL when absent or of another type.
    BaseContainer *GetContainerInstance(LONG id) const;
    BaseLink *GetBaseLink(LONG id) const;
    // The target when it is in `doc` and is an `instanceof`; otherwise NULL.
    BaseList2D *GetLink(LONG id, const BaseDocument *doc, LONG instanceof = 0) const;
    BaseObject *GetObjectLink(LONG id, const BaseDocument *doc) const;

    // Stored as a whole number.
    void SetBool(LONG id, Bool value) { SetLong(id, value ? 1 : 0); }
    void SetLong(LONG id, LONG value);
    void SetReal(LONG id, Real value);
    void SetVector(LONG id, const Vector &value);
    void SetString(LONG id, const String &value);
    void SetFilename(LONG id, const Filename &value);
    void SetTime(LONG id, const BaseTime &value);
    void SetContainer(LONG id, const BaseContainer &value);
    // NULL stores an empty link.
    void SetLink(LONG id, C4DAtomGoal *target);

  private:
    void *body_;
    LONG id_;
    ULONG dirty_;
};
