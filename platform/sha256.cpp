#include "platform/sha256.h"

#include <fcntl.h>
#include <openssl/evp.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <memory>

#include "platform/descriptor.h"
#include "platform/error.h"
#include "platform/files.h"

namespace platform {

namespace {

struct FreeDigest {
    void operator()(EVP_MD_CTX* digest) const { EVP_MD_CTX_free(digest); }
};
using Digest = std::unique_ptr<EVP_MD_CTX, FreeDigest>;

void Require(int outcome) {
    if (outcome != 1) throw RuntimeError(error_number::kInternalError, "SHA-256 is not to be had");
}

void AddFile(EVP_MD_CTX* digest, const std::string& name) {
    Descriptor file;
    if (const int failure = OpenRegularFile(ResolvePath(name), O_RDONLY, file); failure != 0)
        throw ErrorFromErrno(failure, "open", name);
    std::array<char, std::size_t{64} * 1024> block;
    for (;;) {
        const ssize_t count = ::read(file.Get(), block.data(), block.size());
        if (count == 0) return;
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw ErrorFromErrno(errno, "read", name);
        Require(EVP_DigestUpdate(digest, block.data(), static_cast<std::size_t>(count)));
    }
}

std::string Hexadecimal(const unsigned char* bytes, std::size_t count) {
    constexpr const char* kDigits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += kDigits[bytes[i] >> 4U];
        text += kDigits[bytes[i] & 15U];
    }
    return text;
}

}  // namespace

std::string Sha256OfFiles(std::initializer_list<std::string> names) {
    const Digest digest(EVP_MD_CTX_new());
    Require(digest ? 1 : 0);
    Require(EVP_DigestInit_ex(digest.get(), EVP_sha256(), nullptr));
    for (const std::string& name : names)
        AddFile(digest.get(), name);
    std::array<unsigned char, EVP_MAX_MD_SIZE> value;
    unsigned int size = 0;
    Require(EVP_DigestFinal_ex(digest.get(), value.data(), &size));
    return Hexadecimal(value.data(), size);
}

}  // namespace platform
