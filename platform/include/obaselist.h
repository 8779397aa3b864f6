// Parameters of every element.
#pragma once

enum { ID_LAYER_LINK = 898, ID_BASELIST_NAME = 900 };
