// The scalar types of the interface, and the words for truth and absence.
#pragma once

#include <cstddef>
#include <cstdint>

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
#if UINTPTR_MAX > 0xFFFFFFFF
typedef LLONG VLONG;
typedef LULONG VULONG;
#else
typedef LONG VLONG;
typedef ULONG VULONG;
#endif

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
static_assert(sizeof(VLONG) == sizeof(void *), "a VLONG holds a pointer");
