/// The SQLite file of a store: one row per leaf.
#pragma once

#include "host/store/document.h"
#include "host/store/json_pointer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace host {

/// What a power cut may cost.
enum class Durability {
    powerCut,  ///< nothing that was committed
    process,   ///< anything: only what processes leave behind counts
};

/// The length in bytes that the write-ahead log's file of a busy store has from the beginning.
inline constexpr long preparedLog = 1L << 20;

/// One connection. It belongs to one thread at a time and is never carried across a fork. Every function that fails
/// says so with errno and a line in the device log.
class Database {
  public:
    explicit Database(std::string path, Durability durability);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    /// Opens the file, which must be there. Does nothing when it is open.
    bool open();

    /// Makes the file where it is missing, and its table, and opens it.
    bool create();

    /// Looks through the whole file; EBADMSG when it is damaged.
    bool isSound();

    /// The leaves in `range`, by path.
    std::optional<Leaves> read(const PathRange& range);

    /// Puts another value into a leaf. False when it has this one, and when there is no such leaf.
    std::optional<bool> replace(const Leaf& leaf);

    bool put(const Leaf& leaf);

    /// Takes the leaves in `range` away and appends their paths to `removed`.
    bool remove(const PathRange& range, std::vector<std::string>& removed);

    /// One transaction, alone among writers from its beginning. ESTALE when the file is no longer the one at its path.
    bool begin();
    bool commit();
    /// Ends a transaction without a trace; does nothing when there is none.
    void rollback();

    /// Moves the write-ahead log into the database, as far as nobody has to wait for it.
    bool checkpoint();
    /// Waits for readers and gives the log's room back. Nobody may write meanwhile.
    bool emptyLog();
    /// Makes the write-ahead log's file as long as it mostly gets, so that a commit overwrites blocks that the file has
    /// already, which is durable sooner. Nobody may write meanwhile. What follows the log's end is read by nobody.
    void lengthenLog();
    /// Size of the write-ahead log's file in bytes.
    std::int64_t logSize() const;

  private:
    enum Prepared : std::size_t {
        readRange,
        replaceLeaf,
        putLeaf,
        removeRange,
        beginWrite,
        commitWrite,
        checkFile,
        preparedCount
    };
    using OnRow = std::function<void(sqlite3_stmt* row)>;

    bool openFile(int flags);
    bool execute(const char* sql);
    /// Runs a statement to its end with these parameters, and shows each of its rows to `onRow`.
    bool run(Prepared which, std::initializer_list<std::string_view> texts = {}, const OnRow& onRow = nullptr);
    sqlite3_stmt* prepared(Prepared which);
    bool fail(int result);

    struct Close {
        void operator()(sqlite3* connection) const;
    };
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    const std::string path_;
    const Durability durability_;
    std::unique_ptr<sqlite3, Close> connection_;
    std::array<std::unique_ptr<sqlite3_stmt, Finalize>, preparedCount> statements_;
};

}  // namespace host
