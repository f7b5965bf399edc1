#include "engine/file/keys.h"

#include <sodium.h>

#include <cstring>

#include "engine/types/types.h"

namespace engine::file {

namespace {

constexpr std::uint8_t saltMark[3] = {'V', 'O', 'C'};

// User and password as one text; the length in front keeps ("ab","c") and ("a","bc") apart.
std::string passphrase(const Credential& credential) {
  return std::to_string(credential.user.size()) + ":" + credential.user + credential.password;
}

void hash(const std::string& phrase, const Salt& salt, Key& key) {
  crypto_generichash_state state;
  crypto_generichash_init(&state, salt.data(), salt.size(), key.size());
  crypto_generichash_update(&state, reinterpret_cast<const unsigned char*>(phrase.data()), phrase.size());
  crypto_generichash_final(&state, key.data(), key.size());
  sodium_memzero(&state, sizeof state);
}

bool stretch(const std::string& phrase, const Salt& salt, Key& key) {
  static_assert(crypto_pwhash_SALTBYTES == saltBytes);
  return crypto_pwhash(key.data(), key.size(), phrase.data(), phrase.size(), salt.data(),
                       crypto_pwhash_OPSLIMIT_INTERACTIVE, crypto_pwhash_MEMLIMIT_INTERACTIVE,
                       crypto_pwhash_ALG_ARGON2ID13) == 0;
}

}  // namespace

Salt newSalt(const Credential& credential) {
  Salt salt;
  randombytes_buf(salt.data(), salt.size());
  std::memcpy(salt.data(), saltMark, sizeof saltMark);
  salt[3] = static_cast<std::uint8_t>(credential.ownPassword ? Scheme::ownPassword : Scheme::builtIn);
  return salt;
}

bool isSalt(const std::uint8_t* bytes) {
  return std::memcmp(bytes, saltMark, sizeof saltMark) == 0;
}

int schemeOf(const Salt& salt) {
  return salt[3];
}

bool isKnownScheme(const Salt& salt) {
  return schemeOf(salt) == static_cast<int>(Scheme::builtIn) ||
         schemeOf(salt) == static_cast<int>(Scheme::ownPassword);
}

std::shared_ptr<const PageCipher> deriveCipher(const Credential& credential, const Salt& salt) {
  if (!isKnownScheme(salt))
    throw Error(errors::notADictionary, unknownSchemeText("The file", schemeOf(salt)));
  std::string phrase = passphrase(credential);
  Key key;
  bool good = true;
  if (schemeOf(salt) == static_cast<int>(Scheme::builtIn))
    hash(phrase, salt, key);
  else
    good = stretch(phrase, salt, key);
  sodium_memzero(phrase.data(), phrase.size());
  if (!good)
    throw Error(errors::permissionDenied, "There is not enough memory to derive the key from the password.");
  auto cipher = std::make_shared<const PageCipher>(salt, key);
  sodium_memzero(key.data(), key.size());
  return cipher;
}

}  // namespace engine::file
