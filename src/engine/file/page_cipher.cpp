#include "engine/file/page_cipher.h"

#include <sodium.h>

#include <cstring>

#include "engine/types/types.h"

namespace engine::file {

namespace {

// SQLite's bytes 16 to 23 of page 1 (page size, reserved bytes) stay readable: it wants them before it
// can recover a file. They are authenticated instead.
constexpr int clearHead = 24, clearHeaderAt = 16, clearHeaderBytes = 8;
constexpr char sqliteMagic[] = "SQLite format 3";
static_assert(sizeof sqliteMagic == saltBytes);

struct AdditionalData {
  std::array<std::uint8_t, 1 + 4 + saltBytes + clearHeaderBytes> bytes;
  int size;
};

AdditionalData additionalData(Domain domain, std::uint32_t pageNumber, const Salt& salt,
                              const std::uint8_t* page) {
  AdditionalData data{};
  data.bytes[0] = static_cast<std::uint8_t>(domain);
  for (int i = 0; i < 4; ++i) data.bytes[1 + i] = static_cast<std::uint8_t>(pageNumber >> (8 * i));
  std::memcpy(&data.bytes[5], salt.data(), saltBytes);
  data.size = 5 + saltBytes;
  if (pageNumber == 1) {
    std::memcpy(&data.bytes[data.size], page + clearHeaderAt, clearHeaderBytes);
    data.size += clearHeaderBytes;
  }
  return data;
}

int encryptedFrom(std::uint32_t pageNumber) {
  return pageNumber == 1 ? clearHead : 0;
}

}  // namespace

PageCipher::PageCipher(const Salt& salt, const Key& master) : salt_(salt) {
  Key pageKey, blockKey;
  crypto_kdf_derive_from_key(pageKey.data(), pageKey.size(), 1, "vocapage", master.data());
  crypto_kdf_derive_from_key(blockKey.data(), blockKey.size(), 2, "vocapage", master.data());
  bool good = true;
  for (Context* context : {&sealing_, &opening_, &hiding_, &showing_}) {
    context->reset(EVP_CIPHER_CTX_new());
    good = good && *context;
  }
  const auto gcm = [&](const Context& context, int encrypt) {
    return EVP_CipherInit_ex(context.get(), EVP_aes_256_gcm(), nullptr, nullptr, nullptr, encrypt) == 1 &&
           EVP_CIPHER_CTX_ctrl(context.get(), EVP_CTRL_AEAD_SET_IVLEN, nonceBytes, nullptr) == 1 &&
           EVP_CipherInit_ex(context.get(), nullptr, nullptr, pageKey.data(), nullptr, encrypt) == 1;
  };
  const auto ecb = [&](const Context& context, int encrypt) {
    return EVP_CipherInit_ex(context.get(), EVP_aes_256_ecb(), nullptr, blockKey.data(), nullptr, encrypt) ==
               1 &&
           EVP_CIPHER_CTX_set_padding(context.get(), 0) == 1;
  };
  good = good && gcm(sealing_, 1) && gcm(opening_, 0) && ecb(hiding_, 1) && ecb(showing_, 0);
  sodium_memzero(pageKey.data(), pageKey.size());
  sodium_memzero(blockKey.data(), blockKey.size());
  if (!good) throw Error(errors::permissionDenied, "The encryption library refuses AES-256-GCM.");
}

bool PageCipher::seal(Domain domain, std::uint32_t pageNumber, const std::uint8_t* plain,
                      std::uint8_t* sealed) const {
  const AdditionalData data = additionalData(domain, pageNumber, salt_, plain);
  const int from = encryptedFrom(pageNumber);
  if (from != 0) {
    std::memcpy(sealed, salt_.data(), saltBytes);
    std::memcpy(sealed + clearHeaderAt, plain + clearHeaderAt, clearHeaderBytes);
  }
  std::memcpy(sealed + saltAt, salt_.data(), saltBytes);
  EVP_CIPHER_CTX* context = sealing_.get();
  int size = 0;
  randombytes_buf(sealed + nonceAt, nonceBytes);
  return EVP_EncryptInit_ex(context, nullptr, nullptr, nullptr, sealed + nonceAt) == 1 &&
         EVP_EncryptUpdate(context, nullptr, &size, data.bytes.data(), data.size) == 1 &&
         EVP_EncryptUpdate(context, sealed + from, &size, plain + from, bodyBytes - from) == 1 &&
         EVP_EncryptFinal_ex(context, sealed + from + size, &size) == 1 &&
         EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_GET_TAG, tagBytes, sealed + tagAt) == 1;
}

bool PageCipher::decrypt(Domain domain, std::uint32_t pageNumber, std::uint8_t* page) const {
  const AdditionalData data = additionalData(domain, pageNumber, salt_, page);
  const int from = encryptedFrom(pageNumber);
  if (std::memcmp(page + saltAt, salt_.data(), saltBytes) != 0) return false;
  if (from != 0 && std::memcmp(page, salt_.data(), saltBytes) != 0) return false;
  EVP_CIPHER_CTX* context = opening_.get();
  int size = 0;
  return EVP_DecryptInit_ex(context, nullptr, nullptr, nullptr, page + nonceAt) == 1 &&
         EVP_DecryptUpdate(context, nullptr, &size, data.bytes.data(), data.size) == 1 &&
         EVP_DecryptUpdate(context, page + from, &size, page + from, bodyBytes - from) == 1 &&
         EVP_CIPHER_CTX_ctrl(context, EVP_CTRL_AEAD_SET_TAG, tagBytes, page + tagAt) == 1 &&
         EVP_DecryptFinal_ex(context, page + from + size, &size) == 1;
}

bool PageCipher::open(Domain domain, std::uint32_t pageNumber, std::uint8_t* page) const {
  if (!decrypt(domain, pageNumber, page)) {
    std::memset(page, 0, pageSize);
    return false;
  }
  if (pageNumber == 1) std::memcpy(page, sqliteMagic, sizeof sqliteMagic);
  // SQLite's log checksum covers the reserved bytes as it wrote them: zero.
  std::memset(page + bodyBytes, 0, reservedBytes);
  return true;
}

bool PageCipher::hideBlock(std::uint8_t* block) const {
  int size = 0;
  return EVP_EncryptUpdate(hiding_.get(), block, &size, block, 16) == 1 && size == 16;
}

bool PageCipher::showBlock(std::uint8_t* block) const {
  int size = 0;
  return EVP_DecryptUpdate(showing_.get(), block, &size, block, 16) == 1 && size == 16;
}

}  // namespace engine::file
