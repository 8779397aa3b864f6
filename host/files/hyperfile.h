// Hyper files: typed values behind an identification code, big-endian.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "host/value/container.h"

struct HostHyperFile {
    virtual ~HostHyperFile() = default;
};

namespace host {

enum class FileMode : std::int32_t { kRead = 1, kWrite = 2 };
enum FileError : std::int32_t {
    kFileOk = 0,
    kFileOpen = -1,
    kFileClose = -2,
    kFileRead = -3,
    kFileWrite = -4,
    kFileInvalid = -6,
    kFileOutOfMemory = -7,
    kFileWrongValue = -100,
    kFileEnd = -104
};

// Reading happens from memory, writing is collected and put in place on Close as a complete file.
class HyperFile : public HostHyperFile {
  public:
    ~HyperFile() override { Close(); }
    // Reading: false when the file is missing, is no hyper file, or carries another ident.
    bool Open(std::int32_t ident, const std::filesystem::path &file, FileMode mode);
    // In memory, for documents and tests.
    void OpenForWriting(std::int32_t ident);
    bool OpenForReading(std::int32_t ident, std::string bytes);
    const std::string &Bytes() const { return bytes_; }
    bool Close();  // false if a write failed
    FileError Error() const { return error_; }

    // A value with its type; false, with Error set, on another type or a cut-off file.
    bool WriteWhole(std::int32_t value);
    bool ReadWhole(std::int32_t *value);
    bool WriteReal(double value);
    bool ReadReal(double *value);
    bool WriteText(const std::string &utf8);
    bool ReadText(std::string *utf8);
    bool WriteTime(const Time &time);
    bool ReadTime(Time *time);
    bool WriteVector(const Vector &vector);
    bool ReadVector(Vector *vector);
    bool WriteContainer(const Container &container);
    bool ReadContainer(Container *container);
    bool WriteData(const TableData &data);
    bool ReadData(Data *data);

    // How links are written and read while a document is saved or loaded: a number for a node and back. Without it a
    // link is written as unresolved.
    struct LinkNumbers {
        virtual ~LinkNumbers() = default;
        virtual std::int32_t NumberOf(HostAtom *node) = 0;              // -1: not in the document
        virtual void Connect(HostLink *link, std::int32_t number) = 0;  // now or after all nodes are read
    };
    LinkNumbers *links = nullptr;

  private:
    bool BeginValue(std::int32_t type);
    bool FindValue(std::int32_t type);
    bool Ended(bool whole);
    template <typename Number>
    bool WriteNumber(std::int32_t type, Number value);
    template <typename Number>
    bool ReadNumber(std::int32_t type, Number *value);
    template <typename Value>
    bool WriteAny(std::int32_t type, const Value &value);
    template <typename Value>
    bool ReadAny(std::int32_t type, Value *value);

    std::string bytes_;
    std::size_t position_ = 0;
    bool writing_ = false, open_ = false;
    FileError error_ = kFileOk;
    std::filesystem::path file_;
};

}  // namespace host
