// While it exists, what is known of a container stays true without being asked of its tag.
#pragma once

#include "c4d.h"

class Alone {
  public:
    explicit Alone(Bool *is_alone) : is_alone_(is_alone), before_(*is_alone) { *is_alone_ = TRUE; }
    ~Alone() { *is_alone_ = before_; }
    Alone(const Alone &) = delete;
    Alone &operator=(const Alone &) = delete;

  private:
    Bool *is_alone_;
    Bool before_;
};
