// One value of any type.
#pragma once

#include "c4d_basetime.h"
#include "c4d_filename.h"
#include "ge_matrix.h"

// What a custom data type (a spline, a priority) derives from; never made directly.
struct CustomDataType {
  private:
    CustomDataType();
    ~CustomDataType();

    friend class SplineData;
    friend class PriorityData;
};

class GeData {
  public:
    // DA_NIL.
    GeData() : type_(DA_NIL) { value_.whole64 = 0; }
    // Also a Bool.
    GeData(LONG value) : type_(DA_LONG) {
        value_.whole64 = 0;
        value_.whole = value;
    }
    GeData(SReal value) : type_(DA_REAL) { value_.real = value; }
    GeData(double value) : type_(DA_REAL) { value_.real = value; }
    GeData(const Vector &value);
    GeData(const String &value);
    GeData(const Filename &value);
    GeData(const BaseTime &value);
    GeData(const BaseContainer &value);
    // A link to that node; NULL: an empty link.
    GeData(BaseList2D *value);
    GeData(const GeData &other);
    ~GeData();
    GeData &operator=(const GeData &other);

    Bool operator==(const GeData &other) const;
    Bool operator!=(const GeData &other) const { return !(*this == other); }

    // A DA_ code, or the number of a custom type.
    LONG GetType() const { return type_; }

    // Whole numbers and reals convert into one another (a real is cut toward zero and to the range, no number is 0).
    // Any other type gives 0, an empty value, or NULL.
    Bool GetBool() const { return GetLong() != 0; }
    LONG GetLong() const;
    LLONG GetLLong() const;
    Real GetReal() const;
    const Vector &GetVector() const;
    const String &GetString() const;
    const Filename &GetFilename() const;
    const BaseTime &GetTime() const;
    // Into the value: gone with it.
    BaseContainer *GetContainer() const { return type_ == DA_CONTAINER ? value_.container : NULL; }
    BaseLink *GetBaseLink() const { return type_ == DA_ALIASLINK ? value_.link : NULL; }
    CustomDataType *GetCustomDataType(LONG type) const {
        return type_ == type && type > DA_CUSTOMDATATYPE ? value_.custom : NULL;
    }
    // The target when it is in `doc` and is an `instanceof`; otherwise NULL.
    BaseList2D *GetLink(const BaseDocument *doc, LONG instanceof = 0) const;

    // Back to DA_NIL.
    void Free();

  private:
    void CopyFrom(LONG type, const void *value);

    LONG type_;
    union {
        LONG whole;
        LLONG whole64;
        Real real;
        void *pointer;
        Vector *vector;
        Matrix *matrix;
        BaseTime *time;
        String *string;
        Filename *filename;
        BaseContainer *container;
        BaseLink *link;
        CustomDataType *custom;
    } value_;
};
