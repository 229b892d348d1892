#include "vd/forms/detail/node_pool.h"

#include <cassert>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#define VD_POISON(p, n) ASAN_POISON_MEMORY_REGION(p, n)
#define VD_UNPOISON(p, n) ASAN_UNPOISON_MEMORY_REGION(p, n)
#else
#define VD_POISON(p, n) ((void)(p), (void)(n))
#define VD_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace vd::forms::detail {

// The head of a chunk; the chunk is aligned to its size, so a block finds its
// chunk by rounding its address down.
struct NodePool::Chunk {
  NodePool* owner;       // nullptr once the pool is gone
  size_t blocksOut = 0;  // handed out and not given back
  size_t blockBytes;
};

namespace {
constexpr size_t kFirstBlock = 32;  // the chunk's head, rounded up to the strictest alignment
constexpr auto kChunkAlign = std::align_val_t{NodePool::kChunkBytes};

void FreeChunk(void* chunk) noexcept {
  VD_UNPOISON(chunk, NodePool::kChunkBytes);  // blocks on the free list were poisoned
  ::operator delete(chunk, kChunkAlign);
}
}  // namespace

NodePool::Chunk* NodePool::ChunkOf(void* block) noexcept {
  const auto offset = reinterpret_cast<uintptr_t>(block) & (kChunkBytes - 1);
  return reinterpret_cast<Chunk*>(static_cast<std::byte*>(block) - offset);
}

NodePool::~NodePool() {
  for (Chunk* chunk : chunks_) {
    if (chunk->blocksOut == 0) {
      FreeChunk(chunk);
    } else {
      chunk->owner = nullptr;  // the last block given back frees it
    }
  }
}

void NodePool::NewChunk() {
  static_assert(kFirstBlock >= sizeof(Chunk) && kFirstBlock % alignof(std::max_align_t) == 0);
  chunks_.reserve(chunks_.size() + 1);
  void* memory = ::operator new(kChunkBytes, kChunkAlign);
  auto* chunk = new (memory) Chunk{this, 0, blockBytes_};
  chunks_.push_back(chunk);
  bump_ = static_cast<std::byte*>(memory) + kFirstBlock;
  end_ = bump_ + (kChunkBytes - kFirstBlock) / blockBytes_ * blockBytes_;
}

void* NodePool::Allocate(size_t bytes) {
  if (blockBytes_ == 0) blockBytes_ = bytes;
  assert(bytes == blockBytes_ && bytes >= sizeof(void*) && bytes <= kChunkBytes / 4);
  void* block = free_;
  if (block != nullptr) {
    VD_UNPOISON(block, blockBytes_);
    free_ = *static_cast<void**>(block);
  } else {
    if (bump_ == end_) NewChunk();
    block = bump_;
    bump_ += blockBytes_;
  }
  Chunk* chunk = ChunkOf(block);
  ++chunk->blocksOut;
  return block;
}

void NodePool::Deallocate(void* block) noexcept {
  Chunk* chunk = ChunkOf(block);
  --chunk->blocksOut;
  NodePool* pool = chunk->owner;
  if (pool == nullptr) {
    if (chunk->blocksOut == 0) FreeChunk(chunk);
    return;
  }
  *static_cast<void**>(block) = pool->free_;
  pool->free_ = block;
  VD_POISON(static_cast<std::byte*>(block) + sizeof(void*), chunk->blockBytes - sizeof(void*));
}

}  // namespace vd::forms::detail
