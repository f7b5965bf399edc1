#pragma once

#include <openssl/evp.h>

#include <array>
#include <cstdint>
#include <memory>

#include "engine/file/vfs.h"

namespace engine::file {

/// Kept in clear at the head of page 1 and at the end of every page. Bytes 0 to 2 are "VOC", byte 3 is the
/// scheme, the rest is random.
using Salt = std::array<std::uint8_t, 16>;
using Key = std::array<std::uint8_t, 32>;

inline constexpr int nonceBytes = 24, tagBytes = 16, saltBytes = 16;
inline constexpr int bodyBytes = pageSize - reservedBytes;  ///< ciphertext, then nonce, tag, salt
inline constexpr int nonceAt = bodyBytes, tagAt = nonceAt + nonceBytes, saltAt = tagAt + tagBytes;
static_assert(nonceBytes + tagBytes + saltBytes == reservedBytes);

/// Where a page stands; part of what is authenticated, so that no page passes for one of another file kind.
enum class Domain : std::uint8_t { mainFile = 1, log = 2, journal = 3 };

/// Seals and opens pages under the keys of one file: AES-256-GCM with a random nonce of 24 bytes, which
/// keeps chance repetitions out of reach for any number of writes. One thread at a time.
class PageCipher {
 public:
  /// Throws 70 when the library refuses.
  PageCipher(const Salt& salt, const Key& master);

  const Salt& salt() const { return salt_; }
  /// Seals a page of SQLite's into `sealed` (both pageSize bytes, not overlapping); false when the library
  /// fails.
  bool seal(Domain domain, std::uint32_t pageNumber, const std::uint8_t* plain, std::uint8_t* sealed) const;
  /// Opens a page in place as SQLite knows it, reserved bytes zero; false, and all zero, when it is not
  /// authentic.
  bool open(Domain domain, std::uint32_t pageNumber, std::uint8_t* page) const;
  /// Permutes 16 bytes in place under a key of their own, and back: for checksums over plain text.
  bool hideBlock(std::uint8_t* block) const;
  bool showBlock(std::uint8_t* block) const;

 private:
  struct Free {
    void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); }
  };
  using Context = std::unique_ptr<EVP_CIPHER_CTX, Free>;
  bool decrypt(Domain domain, std::uint32_t pageNumber, std::uint8_t* page) const;

  Salt salt_;
  Context sealing_, opening_, hiding_, showing_;
};

}  // namespace engine::file
