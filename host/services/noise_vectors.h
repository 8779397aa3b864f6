// The noise with several corners of a cell side by side, where the compiler and its target have the instructions.
#pragma once

#if defined(__GNUC__) && defined(__x86_64__)
#define TREMOLUX_NOISE_SSE2
// On Windows that compiler leaves the stack where values of 32 bytes cannot lie.
#ifndef _WIN32
#define TREMOLUX_NOISE_AVX2
#endif
#endif

namespace host::noise {

#ifdef TREMOLUX_NOISE_SSE2
double WithSse2(double x, double y, double z, double t);
#endif
#ifdef TREMOLUX_NOISE_AVX2
double WithAvx2(double x, double y, double z, double t);  // on machines that have it
#endif

}  // namespace host::noise
