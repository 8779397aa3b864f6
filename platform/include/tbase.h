// Parameters of every tag.
#pragma once

enum { ID_TAGPROPERTIES = 803 };
