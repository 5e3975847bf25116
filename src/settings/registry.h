// The settings store as a record of operations over (key, value name). Keys are "" for the main
// key and "1" to "9" for the function keys; names compare without regard to case. There are three
// implementations: a file, memory, and a store for tests that fails on demand.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kalvex {

/// What the user should know about the file behind a store.
struct StoreRemarks {
    std::string notStored;  ///< why the last write failed, in words; empty after one that succeeded
    std::string keptAs;  ///< the path of the copy that was made of a damaged file; empty: none yet
};

struct Registry {
    /// Whether an existing key can be opened.
    std::function<bool(std::string_view key)> open;
    /// Makes a key (first start only). False when that is impossible.
    std::function<bool(std::string_view key)> create;
    /// Nothing when the value is missing, of the other type, or unreadable.
    std::function<std::optional<std::int32_t>(std::string_view key, std::string_view name)>
        readNumber;
    std::function<std::optional<std::u16string>(std::string_view key, std::string_view name)>
        readText;
    /// False when the value could not be stored; what was stored before then survives.
    std::function<bool(std::string_view key, std::string_view name, std::int32_t value)>
        writeNumber;
    std::function<bool(std::string_view key, std::string_view name, std::u16string_view value)>
        writeText;
    /// Whether nothing at all is stored (a first start).
    std::function<bool()> isEmpty;
    /// An optional pair. The writes between `begin` and `commit` are stored together by `commit`.
    /// When that fails, `commit` is false and none of them is stored. Pairs may be nested; the
    /// outermost `commit` stores. A registry without the pair stores each write at once.
    std::function<void()> begin = {};
    std::function<bool()> commit = {};
    /// Belongs to the pair: ends a batch without storing anything of it.
    std::function<void()> discard = {};
    /// Optional.
    std::function<StoreRemarks()> remarks = {};
};

/// The remarks of a registry; empty ones when it makes none.
[[nodiscard]] StoreRemarks RemarksOf(const Registry& registry);

/// A batch of a registry that has them. An exception that leaves it discards what was written in
/// it; otherwise an end without `Commit` stores that.
class Batch final {
  public:
    explicit Batch(const Registry& of);
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    /// Ends the batch. True without batches.
    [[nodiscard]] bool Commit();
    /// Begins the next one.
    void Begin();

  private:
    const Registry& registry;
    int exceptions;  ///< that were on their way when it was made
    bool isOpen = false;
};

/// Runs `writes` as one batch. When `writes` fails, the values that it wrote before are stored, as
/// they would be without a batch. True when both `writes` and the store succeeded.
[[nodiscard]] bool WriteTogether(const Registry& registry, const std::function<bool()>& writes);

/// The form of a name that is used for comparisons: ASCII letters in lower case.
[[nodiscard]] std::string FoldedName(std::string_view name);

}  // namespace kalvex
