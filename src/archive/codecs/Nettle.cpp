#include "archive/codecs/Nettle.h"

#include <dlfcn.h>

#include <array>
#include <cstdint>

// PELLUMAR_NETTLE: the soname of the library whose headers these are.

namespace pellumar::archive {

namespace {

#define PELLUMAR_LOADED                                                                    \
    "[{\"soname\":[\"" PELLUMAR_NETTLE                                                     \
    "\"],\"feature\":\"encryption\",\"description\":\"Read and write AES-encrypted ZIP \"" \
    ",\"priority\":\"recommended\"}]"

// Tells packaging tools of the dependency, which no linker can see (ELF dlopen metadata, of the
// UAPI group's specifications).
struct Note {
    std::uint32_t nameSize = sizeof("FDO");
    std::uint32_t textSize = sizeof(PELLUMAR_LOADED);
    std::uint32_t type = 0x407C0C0A;
    std::array<char, sizeof("FDO")> name = {"FDO"};
    alignas(std::uint32_t) std::array<char, sizeof(PELLUMAR_LOADED)> text = {PELLUMAR_LOADED};
};
[[gnu::used, gnu::section(".note.dlopen")]] alignas(std::uint32_t) constexpr Note kNote;

#undef PELLUMAR_LOADED

template <typename Function>
bool find(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

// Null if the library is not there, or is not what the headers promise.
const Nettle* load() {
    static Nettle nettle;
    void* const library = ::dlopen(PELLUMAR_NETTLE, RTLD_NOW | RTLD_LOCAL);
    const bool complete = library != nullptr &&
                          find(library, "nettle_aes128_set_encrypt_key", nettle.setKey128) &&
                          find(library, "nettle_aes192_set_encrypt_key", nettle.setKey192) &&
                          find(library, "nettle_aes256_set_encrypt_key", nettle.setKey256) &&
                          find(library, "nettle_aes128_encrypt", nettle.encrypt128) &&
                          find(library, "nettle_aes192_encrypt", nettle.encrypt192) &&
                          find(library, "nettle_aes256_encrypt", nettle.encrypt256) &&
                          find(library, "nettle_hmac_sha1_set_key", nettle.setCodeKey) &&
                          find(library, "nettle_hmac_sha1_update", nettle.updateCode) &&
                          find(library, "nettle_hmac_sha1_digest", nettle.finishCode) &&
                          find(library, "nettle_sha1_compress", nettle.compress) &&
                          find(library, "nettle_memeql_sec", nettle.areEqual);
    return complete ? &nettle : nullptr;
}

}  // namespace

const Nettle* Nettle::get() {
    static const Nettle* const kLoaded = load();
    return kLoaded;
}

}  // namespace pellumar::archive
