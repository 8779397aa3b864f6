// The priority field of a tag: when it is evaluated.
#pragma once

#include "c4d_gedata.h"

#define CUSTOMGUI_PRIORITY 1009364
#define CUSTOMGUI_PRIORITY_DATA 1009369

// Numbers of the values.
#define PRIORITYVALUE_MODE 0             // LONG, CYCLE_
#define PRIORITYVALUE_PRIORITY 1         // LONG, -499 to 499
#define PRIORITYVALUE_CAMERADEPENDENT 2  // Bool

enum { CYCLE_INITIAL = 0, CYCLE_ANIMATION = 1, CYCLE_EXPRESSION = 2, CYCLE_DYNAMICS = 3, CYCLE_GENERATORS = 4 };

class PriorityData : public CustomDataType {
  public:
    Bool SetPriorityValue(LONG value_id, const GeData &data);

  private:
    PriorityData();
    ~PriorityData();
};
