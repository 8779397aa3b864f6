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

    // Made with gNew; NULL when out of memory.
    BaseContainer *GetClone(COPYFLAGS flags, AliasTrans *translation) const;
    Bool CopyTo(BaseContainer *destination, COPYFLAGS flags, AliasTrans *translation) const;

    // Removes all entries and keeps the container's own number.
    void FlushAll();
    LONG GetId() const { return id_; }
    void SetId(LONG id) { id_ = id; }
    // Grows with every write.
    ULONG GetDirty() const;

    Bool RemoveData(LONG id);
    Bool RemoveIndex(LONG index);
    // Position, or NOTOK.
    LONG FindIndex(LONG id, GeData **data = NULL) const;
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
    // Appends without looking for an entry of that number.
    GeData *InsData(LONG id, const GeData &data);
    // Same numbers, order and values; the containers' own numbers do not count.
    Bool operator==(const BaseContainer &other) const;
    Bool operator!=(const BaseContainer &other) const { return !(*this == other); }
    // DA_NIL when absent.
    LONG GetType(LONG id) const;
    // Sets every entry of `source`.
    void MergeContainer(const BaseContainer &source);
    // By ascending number.
    void Sort();

    // The first level is the entry, deeper ones lead into containers and components (1000 to 1002).
    Bool GetParameter(const DescID &id, GeData &data) const;
    Bool SetParameter(const DescID &id, const GeData &data);

    // Whole numbers, reals and Bools convert into one another (a real is cut toward zero and to the range, no number
    // is 0, any number but 0 is TRUE). An absent entry and one of another type give `preset`.
    Bool GetBool(LONG id, Bool preset = FALSE) const;
    LONG GetLong(LONG id, LONG preset = 0) const;
    ULONG GetULong(LONG id, ULONG preset = 0) const;
    LLONG GetLLong(LONG id, LLONG preset = 0) const;
    Real GetReal(LONG id, Real preset = 0.0) const;
    void *GetVoid(LONG id, void *preset = NULL) const;
    Vector GetVector(LONG id, const Vector &preset = Vector()) const;
    Matrix GetMatrix(LONG id, const Matrix &preset = Matrix()) const;
    String GetString(LONG id, const String &preset = String()) const;
    Filename GetFilename(LONG id, const Filename &preset = Filename()) const;
    BaseTime GetTime(LONG id, const BaseTime &preset = BaseTime()) const;
    BaseContainer GetContainer(LONG id) const;
    // Live, gone with the entry; NULL when absent or of another type.
    BaseContainer *GetContainerInstance(LONG id) const;
    BaseLink *GetBaseLink(LONG id) const;
    const CustomDataType *GetCustomDataType(LONG id, LONG type) const;
    // The target when it is in `doc` and is an `instanceof`; otherwise NULL.
    BaseList2D *GetLink(LONG id, const BaseDocument *doc, LONG instanceof = 0) const;
    BaseObject *GetObjectLink(LONG id, const BaseDocument *doc) const;

    // Stored as a whole number.
    void SetBool(LONG id, Bool value) { SetLong(id, value ? 1 : 0); }
    void SetLong(LONG id, LONG value);
    void SetULong(LONG id, ULONG value);
    void SetLLong(LONG id, LLONG value);
    void SetReal(LONG id, Real value);
    void SetVoid(LONG id, void *value);
    void SetVector(LONG id, const Vector &value);
    void SetMatrix(LONG id, const Matrix &value);
    void SetString(LONG id, const String &value);
    void SetFilename(LONG id, const Filename &value);
    void SetTime(LONG id, const BaseTime &value);
    void SetContainer(LONG id, const BaseContainer &value);
    // NULL stores an empty link.
    void SetLink(LONG id, C4DAtomGoal *target);

  private:
    void *body_;
    LONG id_;
    [[maybe_unused]] ULONG dirty_;
};
