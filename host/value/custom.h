// Custom data types: values that carry an object.
#pragma once

#include <cstdint>
#include <vector>

#include "host/value/data.h"
#include "platform/table.h"

struct HostCustomData {
    virtual ~HostCustomData() = default;
    virtual std::int32_t Type() const = 0;
    virtual HostCustomData *Clone() const = 0;
    virtual bool Equals(const HostCustomData &other) const = 0;
};

namespace host {

// null for an unknown type, or when RefuseCustomData says so.
HostCustomData *CreateCustomData(std::int32_t type);
// The settings with which a description's entry of that type starts.
Container DefaultSettings(std::int32_t data_type);

// A function y(x) through knots, in pieces of cubic Bezier curves.
class Spline : public HostCustomData {
  public:
    std::int32_t Type() const override { return kDataSpline; }
    HostCustomData *Clone() const override { return new Spline(*this); }
    bool Equals(const HostCustomData &other) const override;

    std::int32_t Insert(double x, double y, std::int32_t flags);  // its index; knots stay in the order of x
    // y at x; outside the knots the end knot's y. A piece's type is that of its left knot.
    double ValueAt(double x) const;
    std::vector<TableSplineKnot> knots;
};

// When a tag runs: mode, priority, camera dependence.
class Priority : public HostCustomData {
  public:
    enum Value { kMode = 0, kPriority = 1, kCameraDependent = 2 };
    static constexpr std::int32_t kModeExpression = 2;
    std::int32_t Type() const override { return kDataPriority; }
    HostCustomData *Clone() const override { return new Priority(*this); }
    bool Equals(const HostCustomData &other) const override;
    bool Set(std::int32_t value_id, const TableData &value);
    std::int32_t Get(std::int32_t value_id) const;

  private:
    std::int32_t values_[3] = {kModeExpression, 0, 0};
};

}  // namespace host
