// The module's version, here alone: the build reads it, too. Plain enough for the compiler of Windows' resources.
#define TREMOLUX_VERSION 1.015
#define TREMOLUX_VERSION_NUMBERS 1, 15, 0, 0

#define TREMOLUX_TEXT_OF(value) #value
#define TREMOLUX_TEXT(value) TREMOLUX_TEXT_OF(value)
#define TREMOLUX_VERSION_TEXT TREMOLUX_TEXT(TREMOLUX_VERSION)
