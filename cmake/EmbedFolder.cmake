# Writes a folder's files into a source file: cmake -DFOLDER=... -DOUTPUT=... -DLEFT_OUT=REGEX -P EmbedFolder.cmake
file(GLOB_RECURSE files RELATIVE "${FOLDER}" "${FOLDER}/*")
list(SORT files)
set(rows "")
foreach(file IN LISTS files)
    if(file MATCHES "${LEFT_OUT}")
        continue()
    endif()
    file(READ "${FOLDER}/${file}" bytes HEX)
    string(LENGTH "${bytes}" digits)
    math(EXPR size "${digits} / 2")
    string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
    string(APPEND rows "        {\"${file}\", {\"${bytes}\", ${size}}},\n")
endforeach()
file(WRITE "${OUTPUT}" "// Written by the build from the module's folder.
#include \"library/runtime/resources.h\"

namespace tremolux {

const std::vector<Resource> &Resources() {
    static const std::vector<Resource> resources = {
${rows}    };
    return resources;
}

}  // namespace tremolux
")
