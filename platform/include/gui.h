#pragma once

#include "c4d_gui.h"
