// Where Windows enters the library.
#ifdef _WIN32

#include <windows.h>

extern "C" {

BOOL WINAPI DllMainCRTStartup(HINSTANCE library, DWORD reason, LPVOID reserved);
BOOL WINAPI EnterLibrary(HINSTANCE library, DWORD reason, LPVOID reserved);

BOOL WINAPI EnterLibrary(HINSTANCE library, DWORD reason, LPVOID reserved) {
    // The process ends: its memory goes as a whole, and a thread that was stopped may hold a lock for good, on which
    // destructors would wait.
    if (reason == DLL_PROCESS_DETACH && reserved != nullptr) return TRUE;
    return DllMainCRTStartup(library, reason, reserved);
}

}  // extern "C"

#endif
