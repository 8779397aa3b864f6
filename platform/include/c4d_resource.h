// The module's strings in the user's language.
#pragma once

#include "c4d_filename.h"

class GeResource {
  public:
    GeResource() : strings_(NULL) {}
    ~GeResource() { Free(); }
    GeResource(const GeResource &) = delete;
    GeResource &operator=(const GeResource &) = delete;

    // The folder "res" beside the module's file. FALSE when it is no usable resource folder.
    Bool Init();
    Bool Init(const Filename &folder);
    // Empty when there is none; valid until Free.
    const String &LoadString(LONG id);
    void Free();

  private:
    struct LoadedString;

    Filename folder_;
    LoadedString *strings_;
};

extern GeResource resource;

const String &GeLoadString(LONG id);
// Each '#' of the text gives way to the next parameter.
String GeLoadString(LONG id, const String &p1);
String GeLoadString(LONG id, const String &p1, const String &p2);
String GeLoadString(LONG id, const String &p1, const String &p2, const String &p3);
String GeLoadString(LONG id, const String &p1, const String &p2, const String &p3, const String &p4);

void FreeResource();
