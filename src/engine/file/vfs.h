#pragma once

#include <array>
#include <cstdint>
#include <string>

struct sqlite3;

/// The encrypted file below SQLite: a layer that seals every page of file, log and journal. The page
/// format and its traps stand in docs/file-format.md.
namespace engine::file {

inline constexpr int pageSize = 4096;
inline constexpr int reservedBytes = 56;
inline constexpr const char* layerName = "vocarium";

/// What opens a file.
struct Credential {
  std::string user, password;
  bool ownPassword = false;   ///< stretched with Argon2id; the built-in one is hashed once
};

/// Registers the layer with SQLite; harmless when done already.
void registerLayer();
/// Lends the layer the credential for the file at this resolved path until the returned lease dies;
/// the layer keeps only derived keys of files it has open.
class KeyLease {
 public:
  KeyLease(std::string path, const Credential& credential);
  ~KeyLease();
  KeyLease(const KeyLease&) = delete;
  KeyLease& operator=(const KeyLease&) = delete;

 private:
  std::string path_;
};

/// What is wrong with a file before SQLite is asked: throws 53, 70, 61 and the three texts of 3343
/// (no dictionary, another credential's, damaged or cut off); returns when it can be opened.
void examine(const std::string& path, const Credential& credential);
/// Asks SQLite for the reserved bytes of an attached file; needed after each ATTACH that may create one.
void reserve(sqlite3* connection, const std::string& schemaName);

}  // namespace engine::file
