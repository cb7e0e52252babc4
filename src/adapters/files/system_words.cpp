#include "adapters/files/system_words.h"

#include <cerrno>
#include <system_error>

namespace qbrpt {

namespace {

const char* Advice(int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return " Free some space, or choose another folder.";
    case EACCES:
    case EPERM:
    case EROFS:
        return " Choose a folder that you may write to.";
    case ENOENT:
    case ENOTDIR:
        return " Make the folder first, or choose another one.";
    case ENAMETOOLONG:
        return " Choose a shorter name.";
    default:
        return "";
    }
}

} // namespace

std::string SystemWords(int error) {
    return std::generic_category().message(error) + "." + Advice(error);
}

} // namespace qbrpt
