#pragma once

#include <nettle/aes.h>
#include <nettle/hmac.h>
#include <nettle/memops.h>
#include <nettle/sha1.h>

namespace pellumar::archive {

// What is used of Nettle, the library of ciphers. It is loaded when the first entry needs it: most
// archives never do, and linked in it would be a sixteenth of what listing a small one takes.
struct Nettle {
    decltype(&::nettle_aes128_set_encrypt_key) setKey128 = nullptr;
    decltype(&::nettle_aes192_set_encrypt_key) setKey192 = nullptr;
    decltype(&::nettle_aes256_set_encrypt_key) setKey256 = nullptr;
    decltype(&::nettle_aes128_encrypt) encrypt128 = nullptr;
    decltype(&::nettle_aes192_encrypt) encrypt192 = nullptr;
    decltype(&::nettle_aes256_encrypt) encrypt256 = nullptr;
    decltype(&::nettle_hmac_sha1_set_key) setCodeKey = nullptr;
    decltype(&::nettle_hmac_sha1_update) updateCode = nullptr;
    decltype(&::nettle_hmac_sha1_digest) finishCode = nullptr;
    // One block of SHA-1, as the processor does it best.
    decltype(&::nettle_sha1_compress) compress = nullptr;
    // Equality, in a time that does not depend on the bytes.
    decltype(&::nettle_memeql_sec) areEqual = nullptr;

    // The library, loaded for good; null if it is not there. Any thread may call this.
    [[nodiscard]] static const Nettle* get();
};

}  // namespace pellumar::archive
