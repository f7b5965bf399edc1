#pragma once

#include <memory>
#include <string>

#include "engine/file/page_cipher.h"

namespace engine::file {

/// How a file's key comes from its credential; told by byte 3 of the salt.
enum class Scheme : std::uint8_t { builtIn = 1, ownPassword = 2 };

/// A fresh salt for a new file.
Salt newSalt(const Credential& credential);
/// Whether 16 bytes look like a salt of this program, of whatever scheme.
bool isSalt(const std::uint8_t* bytes);
int schemeOf(const Salt& salt);
bool isKnownScheme(const Salt& salt);

/// The cipher of a file with this salt: the key is BLAKE2b of user, password and salt for the built-in
/// scheme, Argon2id (interactive cost) for an own password. Throws 3343 for an unknown scheme, 70 when
/// memory for the stretching is missing.
std::shared_ptr<const PageCipher> deriveCipher(const Credential& credential, const Salt& salt);

/// The credential that the latest living lease lends for a path; false when there is none.
bool lentCredential(const std::string& path, Credential& credential);

}  // namespace engine::file
