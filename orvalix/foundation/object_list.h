/// @file
/// The list in which views and charts keep their children.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace orvalix {

/// A doubly linked list that owns its objects. New ones are appended; a cursor rests on the one
/// appended last. The objects are destroyed with the list, first one first.
///
/// T may be incomplete where the list is a member, as long as the owner's constructors and
/// destructor are defined where T is complete.
template <class T>
class ObjectList {
  struct Node {
    Node* next = nullptr;
    Node* previous = nullptr;
    std::unique_ptr<T> object;
  };

 public:
  /// Walks the objects in list order.
  class Iterator {
   public:
    using value_type = T*;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::forward_iterator_tag;
    using pointer = T* const*;
    using reference = T*;

    Iterator() = default;
    explicit Iterator(Node* node) : m_node(node) {}
    T* operator*() const { return m_node->object.get(); }
    Iterator& operator++() {
      m_node = m_node->next;
      return *this;
    }
    Iterator operator++(int) {
      Iterator before = *this;
      ++*this;
      return before;
    }
    bool operator==(const Iterator&) const = default;

   private:
    Node* m_node = nullptr;
  };

  ObjectList() = default;
  ~ObjectList() { Clear(); }
  ObjectList(const ObjectList&) = delete;
  ObjectList& operator=(const ObjectList&) = delete;

  /// Puts an object at the tail, where the cursor then rests.
  /// @return the object
  /// @throws std::bad_alloc; the object is then destroyed and the list unchanged
  T* Append(std::unique_ptr<T> object) {
    Node* node = new Node{nullptr, m_tail, std::move(object)};
    (m_tail != nullptr ? m_tail->next : m_head) = node;
    m_tail = node;
    m_cursor = node;
    m_cursorPosition = m_count++;
    return node->object.get();
  }

  /// The object at `index`, from 0, reached by walking from the head; null beyond either end. The
  /// cursor stays.
  T* At(int index) const {
    if (index < 0 || index >= m_count) return nullptr;
    Node* node = m_head;
    for (int i = 0; i < index; ++i) node = node->next;
    return node->object.get();
  }

  /// The object under the cursor; null in an empty list.
  T* AtCursor() const { return m_cursor != nullptr ? m_cursor->object.get() : nullptr; }
  /// Index of the object under the cursor; -1 in an empty list.
  int CursorPosition() const { return m_cursorPosition; }
  /// The first object; null in an empty list.
  T* First() const { return m_head != nullptr ? m_head->object.get() : nullptr; }
  int Count() const { return m_count; }
  bool IsEmpty() const { return m_count == 0; }

  /// Destroys the objects, first one first.
  void Clear() {
    while (m_head != nullptr) {
      const std::unique_ptr<Node> first(m_head);
      m_head = first->next;
      if (m_head != nullptr) m_head->previous = nullptr;
    }
    m_tail = nullptr;
    m_cursor = nullptr;
    m_cursorPosition = -1;
    m_count = 0;
  }

  Iterator begin() const { return Iterator(m_head); }
  Iterator end() const { return Iterator(); }

 private:
  Node* m_head = nullptr;
  Node* m_tail = nullptr;
  Node* m_cursor = nullptr;   ///< the node appended last
  int m_cursorPosition = -1;  ///< index of m_cursor
  int m_count = 0;
};

}  // namespace orvalix
