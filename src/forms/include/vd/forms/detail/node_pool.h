#pragma once
// Memory for a tree's nodes: blocks of one size carved from 64 KiB chunks, so
// that building a large tree makes a few hundred allocations instead of one
// per node, and a block a removed node gave back serves the next node added
// (clearing and rebuilding the tree reuses the same memory).
//
// A node may outlive its tree (a caller holds it): a chunk goes back to the
// heap when both the pool and every block handed out of it are gone, so
// releasing such a node after the tree is fine. Blocks are handed out and
// returned on the tree's own thread, as the tree itself is used.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vd::forms::detail {

class NodePool {
 public:
  static constexpr size_t kChunkBytes = size_t{1} << 16;

  NodePool() = default;
  NodePool(const NodePool&) = delete;
  NodePool& operator=(const NodePool&) = delete;
  ~NodePool();

  // Every call must ask for the same size, at most a quarter of a chunk.
  [[nodiscard]] void* Allocate(size_t bytes);
  // A block from Allocate of any pool, alive or not.
  static void Deallocate(void* block) noexcept;

  // Chunks taken from the heap and not yet given back (for tests).
  [[nodiscard]] size_t ChunkCount() const { return chunks_.size(); }

 private:
  struct Chunk;
  static Chunk* ChunkOf(void* block) noexcept;
  void NewChunk();

  std::vector<Chunk*> chunks_;
  std::byte* bump_ = nullptr;  // next block never handed out, in the newest chunk
  std::byte* end_ = nullptr;
  void* free_ = nullptr;  // blocks given back, linked through their first bytes
  size_t blockBytes_ = 0;
};

// The allocator that allocate_shared uses for one node and its reference
// count together.
template <class T>
class NodeAllocator {
 public:
  using value_type = T;
  explicit NodeAllocator(NodePool& pool) noexcept : pool_(&pool) {}
  template <class U>
  NodeAllocator(const NodeAllocator<U>& other) noexcept : pool_(other.pool_) {}  // NOLINT(google-explicit-constructor)

  [[nodiscard]] T* allocate(size_t n) {
    if (n != 1) return std::allocator<T>().allocate(n);
    return static_cast<T*>(pool_->Allocate(sizeof(T)));
  }
  void deallocate(T* p, size_t n) noexcept {
    if (n != 1) {
      std::allocator<T>().deallocate(p, n);
      return;
    }
    NodePool::Deallocate(p);
  }

  template <class U>
  bool operator==(const NodeAllocator<U>& other) const noexcept {
    return pool_ == other.pool_;
  }

 private:
  template <class U>
  friend class NodeAllocator;
  NodePool* pool_;
};

}  // namespace vd::forms::detail
