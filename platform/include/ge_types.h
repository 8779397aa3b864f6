// The scalar types of the interface, and the words for truth and absence.
#pragma once

#include <cstddef>

typedef char CHAR;
typedef unsigned char UCHAR;
typedef short SWORD;
typedef unsigned short UWORD;

// 32 bits on every platform. The Windows system headers call their `long` LONG, so it has to be `long` there.
#ifdef _WIN32
typedef long LONG;
typedef unsigned long ULONG;
#else
typedef int LONG;
typedef unsigned int ULONG;
#endif

typedef long long LLONG;
typedef unsigned long long LULONG;
typedef unsigned long long ULLONG;

// Pointer sized.
typedef long long VLONG;
typedef unsigned long long VULONG;

typedef float SReal;
typedef double LReal;
typedef LReal Real;

// Not `bool`: four bytes, 0 or 1.
typedef int Bool;

#ifndef TRUE
#define TRUE 1
#endif
#ifndef FALSE
#define FALSE 0
#endif
// "Not found", "no value".
#define NOTOK (-1)

// Argument of the constructors that leave their members uninitialised: Vector(DC).
enum _DONTCONSTRUCT { DC };

static_assert(sizeof(LONG) == 4 && sizeof(LLONG) == 8 && sizeof(UWORD) == 2, "the border has fixed widths");
static_assert(sizeof(VLONG) == sizeof(void *), "only 64-bit builds are supported");
