#include "platform/error.h"

#include <cerrno>
#include <new>
#include <system_error>
#include <utility>

namespace platform {

RuntimeError::RuntimeError(int number, std::string description)
    : number_(number), description_(std::move(description)) {}

RuntimeError RuntimeError::At(std::string_view place) const {
    return {number_, std::string(place) + ": " + description_};
}

RuntimeError CurrentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {error_number::kOutOfMemory, "Out of memory"};
    } catch (const std::exception& error) {
        return {error_number::kInternalError, std::string("Internal error: ") + error.what()};
    }
}

namespace {

int NumberOfErrno(int errnoValue) {
    switch (errnoValue) {
        case ENOENT:
            return error_number::kFileNotFound;
        case ENOTDIR:
            return error_number::kPathNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return error_number::kDiskFull;
        case EACCES:
        case EPERM:
            return error_number::kPermissionDenied;
        case EROFS:
        case EISDIR:
        case EEXIST:
        case ENAMETOOLONG:
        case ELOOP:
        case kNoRegularFile:
            return error_number::kPathAccess;
        default:
            return error_number::kDeviceIo;
    }
}

std::string TextOfErrno(int errnoValue) {
    if (errnoValue == kNoRegularFile) return "it is no regular file";
    return std::generic_category().message(errnoValue);
}

}  // namespace

RuntimeError ErrorFromErrno(int errnoValue, std::string_view verb, std::string_view path) {
    return {NumberOfErrno(errnoValue), "Can not " + std::string(verb) + " " + std::string(path) +
                                           ": " + TextOfErrno(errnoValue)};
}

}  // namespace platform
