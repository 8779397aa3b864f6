// A library that loads and is no module.
#ifdef _WIN32
#define VISIBLE __declspec(dllexport)
#else
#define VISIBLE __attribute__((visibility("default")))
#endif

extern "C" VISIBLE int NoEntry() { return 0; }
