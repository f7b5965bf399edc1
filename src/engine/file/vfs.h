#pragma once

#include <string>

struct sqlite3;

/// The encrypted file below SQLite: a layer that seals every page of file, log and journal. The page
/// format and its traps stand in docs/file-format.md.
///
/// Paths are absolute and resolved. No file that SQLite has open in this process may be opened and closed
/// by other means (std::fstream, cp in-process ...): the close would drop SQLite's POSIX locks. All
/// functions here read through SQLite's own layer, which knows of that.
///
/// A connection should itself be opened with the layer's name and keep temporary content in memory (PRAGMA
/// temp_store=MEMORY): the layer refuses temporary files, the system's writes them in plain text.
namespace engine::file {

inline constexpr int pageSize = 4096;
inline constexpr int reservedBytes = 56;
inline constexpr const char* layerName = "vocarium";

/// What opens a file.
struct Credential {
  std::string user, password;
  bool ownPassword = false;  ///< new files stretch it with Argon2id; the built-in one is hashed once
};

/// Registers the layer with SQLite; harmless when done already. Throws 70 when the cryptographic library
/// does not start.
void registerLayer();
/// Lends the layer the credential for the file at this resolved path until the lease dies. It is needed
/// only while SQLite opens the file (ATTACH, VACUUM INTO): an open file keeps derived keys of its own. Of
/// several leases for one path the latest counts.
class KeyLease {
 public:
  KeyLease(const std::string& path, const Credential& credential);
  ~KeyLease();
  KeyLease(const KeyLease&) = delete;
  KeyLease& operator=(const KeyLease&) = delete;

 private:
  std::string path_;
  int id_ = 0;
};

/// What is wrong with a file before SQLite is asked: throws 53 (missing), 70 (not readable), 3045
/// (exclusively open elsewhere, after a wait of two seconds at most) and 3343 in the texts below; returns
/// when it can be opened. Reads a bounded number of pages. A damaged page 1 or size passes when a log or
/// a journal that may heal it lies beside: what is still damaged after that, SQLite reports as
/// SQLITE_NOTADB, SQLITE_CORRUPT or SQLITE_IOERR_DATA.
void examine(const std::string& path, const Credential& credential);
/// Asks SQLite for the reserved bytes of an attached file; needed after each ATTACH that may create one.
void reserve(sqlite3* connection, const std::string& schemaName);

/// The texts of 3343, and one for a file that a later version of the program wrote.
std::string noDictionaryText(const std::string& path);
std::string otherCredentialText(const std::string& path);
std::string damagedText(const std::string& path);
std::string unknownSchemeText(const std::string& path, int scheme);

}  // namespace engine::file
