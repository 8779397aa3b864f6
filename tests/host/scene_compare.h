// Vectors and matrices are plain structs outside of any namespace: the test library finds their comparisons here.
#pragma once

#include "host/value/vector.h"

using host::operator==;
using host::operator!=;
