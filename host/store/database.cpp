#include "host/store/database.h"

#include "platform/logger.h"

#include <cerrno>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace host {
namespace {

/// How long SQLite waits for somebody who does not take part in the store's own write lock.
constexpr int busyLimitMilliseconds = 2000;

constexpr const char* statementTexts[] = {
    "SELECT path, value FROM leaf WHERE path >= ?1 AND path < ?2 ORDER BY path",
    "UPDATE leaf SET value = ?2 WHERE path = ?1 AND value <> ?2",
    "INSERT INTO leaf(path, value) VALUES(?1, ?2) ON CONFLICT(path) DO UPDATE SET value = excluded.value",
    "DELETE FROM leaf WHERE path >= ?1 AND path < ?2 RETURNING path",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "PRAGMA integrity_check(1)",
};

/// For many small processes that read a leaf now and then: nothing is reserved in advance.
void configureSqlite() {
    [[maybe_unused]] static const bool isConfigured = [] {
        sqlite3_config(SQLITE_CONFIG_MULTITHREAD);
        sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
        sqlite3_config(SQLITE_CONFIG_LOOKASIDE, 0, 0);
        sqlite3_config(SQLITE_CONFIG_PAGECACHE, nullptr, 0, 0);
        return true;
    }();
}

int errnoOf(int result) {
    switch (result & 0xff) {
        case SQLITE_FULL:
            return ENOSPC;
        case SQLITE_READONLY:
            return EROFS;
        case SQLITE_BUSY:
            return EBUSY;
        case SQLITE_NOMEM:
            return ENOMEM;
        case SQLITE_CANTOPEN:
            return ENOENT;
        case SQLITE_ERROR:  // the statements are right: the file has another table than ours
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return EBADMSG;
        default:
            return EIO;
    }
}

std::string textOf(sqlite3_stmt* row, int column) {
    const void* bytes = sqlite3_column_blob(row, column);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_column_bytes(row, column))};
}

}  // namespace

void Database::Close::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

void Database::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Database::Database(std::string path, Durability durability) : path_(std::move(path)), durability_(durability) {}

Database::~Database() = default;

bool Database::open() { return connection_ != nullptr || openFile(0); }

bool Database::create() {
    static constexpr char layout[] =
        "PRAGMA page_size=1024;"  // as little as possible is written and cached for one leaf
        "PRAGMA journal_mode=WAL;"
        "CREATE TABLE IF NOT EXISTS leaf(path TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID";
    // SQLite gives its other files the mode of this one.
    const int fd = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd >= 0) ::close(fd);
    return openFile(SQLITE_OPEN_CREATE) && execute(layout);
}

bool Database::isSound() {
    std::string verdict;
    if (!run(checkFile, {}, [&verdict](sqlite3_stmt* row) { verdict = textOf(row, 0); })) return false;
    if (verdict == "ok") return prepared(readRange) != nullptr;
    errno = EBADMSG;
    return false;
}

std::optional<Leaves> Database::read(const PathRange& range) {
    Leaves leaves;
    const auto keep = [&leaves](sqlite3_stmt* row) { leaves.push_back({textOf(row, 0), textOf(row, 1)}); };
    if (!run(readRange, {range.first, range.end}, keep)) return std::nullopt;
    return leaves;
}

std::optional<bool> Database::replace(const Leaf& leaf) {
    if (!run(replaceLeaf, {leaf.path, leaf.value})) return std::nullopt;
    return sqlite3_changes(connection_.get()) > 0;
}

bool Database::put(const Leaf& leaf) { return run(putLeaf, {leaf.path, leaf.value}); }

bool Database::remove(const PathRange& range, std::vector<std::string>& removed) {
    return run(removeRange, {range.first, range.end},
               [&removed](sqlite3_stmt* row) { removed.push_back(textOf(row, 0)); });
}

bool Database::begin() {
    int hasMoved = 0;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
    if (hasMoved != 0) {
        __printLog(LOG_LEVEL_ERROR, "%s: the file was moved away", path_.c_str());
        errno = ESTALE;
        return false;
    }
    return run(beginWrite);
}

bool Database::commit() { return run(commitWrite); }

void Database::rollback() {
    // SQLite has ended it itself after some failures.
    if (sqlite3_get_autocommit(connection_.get()) == 0) execute("ROLLBACK");
}

bool Database::checkpoint() {
    const int result =
        sqlite3_wal_checkpoint_v2(connection_.get(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    return result == SQLITE_OK || result == SQLITE_BUSY || fail(result);
}

bool Database::emptyLog() {
    const int result =
        sqlite3_wal_checkpoint_v2(connection_.get(), nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    return result == SQLITE_OK || fail(result);
}

std::int64_t Database::logSize() const {
    struct stat log = {};
    return stat((path_ + "-wal").c_str(), &log) == 0 ? log.st_size : 0;
}

void Database::lengthenLog() {
    // Page by page: a later sync of one page looks through all that was written at once.
    static constexpr std::array<char, 4096> zeros{};
    sqlite3_file* log = nullptr;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    if (log == nullptr || log->pMethods == nullptr) return;
    sqlite3_int64 size = 0;
    int result = log->pMethods->xFileSize(log, &size);
    while (result == SQLITE_OK && size < preparedLog) {
        const auto missing = static_cast<int>(zeros.size() - static_cast<std::size_t>(size) % zeros.size());
        result = log->pMethods->xWrite(log, zeros.data(), missing, size);
        size += missing;
    }
    // A full disk leaves it shorter, and the sets as slow as they are without this.
    log->pMethods->xSync(log, SQLITE_SYNC_NORMAL);
}

bool Database::openFile(int flags) {
    configureSqlite();
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(path_.c_str(), &connection, flags | SQLITE_OPEN_READWRITE, nullptr);
    connection_.reset(connection);
    sqlite3_busy_timeout(connection, busyLimitMilliseconds);
    sqlite3_wal_autocheckpoint(connection, 0);
    const bool isOpen = result == SQLITE_OK ? execute(durability_ == Durability::powerCut
                                                          ? "PRAGMA synchronous=FULL;PRAGMA cache_size=8"
                                                          : "PRAGMA synchronous=OFF;PRAGMA cache_size=8")
                                            : fail(result);
    if (!isOpen) connection_.reset();
    return isOpen;
}

bool Database::execute(const char* sql) {
    const int result = sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr);
    return result == SQLITE_OK || fail(result);
}

bool Database::run(Prepared which, std::initializer_list<std::string_view> texts, const OnRow& onRow) {
    sqlite3_stmt* statement = prepared(which);
    if (statement == nullptr) return false;
    int parameter = 0;
    for (const std::string_view text : texts)
        sqlite3_bind_text(statement, ++parameter, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    int result = sqlite3_step(statement);
    for (; result == SQLITE_ROW; result = sqlite3_step(statement)) onRow(statement);
    const bool isDone = result == SQLITE_DONE || fail(result);
    sqlite3_reset(statement);
    return isDone;
}

sqlite3_stmt* Database::prepared(Prepared which) {
    if (statements_[which] == nullptr) {
        sqlite3_stmt* statement = nullptr;
        const int result = sqlite3_prepare_v3(connection_.get(), statementTexts[which], -1, SQLITE_PREPARE_PERSISTENT,
                                              &statement, nullptr);
        if (result != SQLITE_OK) fail(result);
        statements_[which].reset(statement);
    }
    return statements_[which].get();
}

bool Database::fail(int result) {
    __printLog(LOG_LEVEL_ERROR, "%s: %s", path_.c_str(), sqlite3_errmsg(connection_.get()));
    errno = errnoOf(result);
    return false;
}

}  // namespace host
