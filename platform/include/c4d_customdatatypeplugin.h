#pragma once

#include "c4d_basecontainer.h"

// Settings that an entry of the data type starts from (DESC_ keys); the container's own number is the type.
BaseContainer GetCustomDataTypeDefault(LONG type);
