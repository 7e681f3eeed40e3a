// Handing objects from one thread to another without a lock, and without waiting.
#pragma once

#include <atomic>

namespace tamlo {

/// A list that any thread adds to and one thread empties. `Node` has a member `Node* next`; a node
/// belongs to the thread that holds it.
template <class Node>
class Handover {
  public:
    void Push(Node* node) noexcept {
        node->next = newest_.load(std::memory_order_relaxed);
        while (!newest_.compare_exchange_weak(node->next, node, std::memory_order_release,
                                              std::memory_order_relaxed)) {
        }
    }

    /// All nodes as a list, first pushed first; null when there is none.
    Node* TakeAll() noexcept {
        Node* newest = newest_.exchange(nullptr, std::memory_order_acquire);
        Node* first = nullptr;
        while (newest != nullptr) {
            Node* next = newest->next;
            newest->next = first;
            first = newest;
            newest = next;
        }
        return first;
    }

  private:
    std::atomic<Node*> newest_{nullptr};
};

}  // namespace tamlo
