#include "orvalix/foundation/object_list.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include "support/allocation_failure.h"

namespace {

using orvalix::ObjectList;

std::vector<int>& Destroyed() {
  static std::vector<int> destroyed;
  return destroyed;
}

struct Item {
  explicit Item(int itemNumber) : number(itemNumber) {}
  ~Item() { Destroyed().push_back(number); }
  int number;
};

std::vector<int> Numbers(const ObjectList<Item>& list) {
  std::vector<int> numbers;
  for (const Item* item : list) numbers.push_back(item->number);
  return numbers;
}

TEST(ObjectList, StartsEmpty) {
  const ObjectList<Item> list;
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.At(0), nullptr);
  EXPECT_EQ(list.AtCursor(), nullptr);
  EXPECT_EQ(list.CursorPosition(), -1);
  EXPECT_EQ(list.First(), nullptr);
  EXPECT_TRUE(Numbers(list).empty());
}

TEST(ObjectList, AppendsAtTheTailUnderTheCursor) {
  ObjectList<Item> list;
  for (int i = 0; i < 3; ++i) {
    const Item* item = list.Append(std::make_unique<Item>(10 + i));
    EXPECT_EQ(item->number, 10 + i);
    EXPECT_EQ(list.AtCursor(), item);
    EXPECT_EQ(list.CursorPosition(), i);
    EXPECT_EQ(list.Count(), i + 1);
  }
  EXPECT_FALSE(list.IsEmpty());
  EXPECT_EQ(Numbers(list), (std::vector<int>{10, 11, 12}));
  EXPECT_EQ(list.First()->number, 10);
}

TEST(ObjectList, WalksToAnElementWithoutMovingTheCursor) {
  ObjectList<Item> list;
  for (int i = 0; i < 3; ++i) list.Append(std::make_unique<Item>(i));
  for (int i = 0; i < 3; ++i) EXPECT_EQ(list.At(i)->number, i);
  EXPECT_EQ(list.At(3), nullptr);
  EXPECT_EQ(list.At(-1), nullptr);
  EXPECT_EQ(list.At(2147483647), nullptr);
  EXPECT_EQ(list.AtCursor()->number, 2);
  EXPECT_EQ(list.CursorPosition(), 2);
}

TEST(ObjectList, DestroysTheFirstOneFirst) {
  Destroyed().clear();
  {
    ObjectList<Item> list;
    for (int i = 0; i < 3; ++i) list.Append(std::make_unique<Item>(i));
    list.Clear();
    EXPECT_EQ(Destroyed(), (std::vector<int>{0, 1, 2}));
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.AtCursor(), nullptr);
    EXPECT_EQ(list.CursorPosition(), -1);
    list.Append(std::make_unique<Item>(7));
    EXPECT_EQ(Numbers(list), std::vector<int>{7});
  }
  EXPECT_EQ(Destroyed(), (std::vector<int>{0, 1, 2, 7}));
}

TEST(ObjectList, WithoutMemoryTheObjectGoesAndTheListStays) {
  ObjectList<Item> list;
  const Item* first = list.Append(std::make_unique<Item>(1));
  auto second = std::make_unique<Item>(2);
  Destroyed().clear();
  Destroyed().reserve(1);
  bool failed = false;
  {
    const orvalix::test::AllocationFailure failure(1);
    try {
      list.Append(std::move(second));
    } catch (const std::bad_alloc&) {
      failed = true;
    }
  }
  EXPECT_TRUE(failed);
  EXPECT_EQ(Destroyed(), std::vector<int>{2});
  EXPECT_EQ(Numbers(list), std::vector<int>{1});
  EXPECT_EQ(list.AtCursor(), first);
  EXPECT_EQ(list.CursorPosition(), 0);
}

TEST(ObjectList, HoldsAMillion) {
  ObjectList<int> list;
  for (int i = 0; i < 1000000; ++i) list.Append(std::make_unique<int>(i));
  EXPECT_EQ(list.Count(), 1000000);
  long long sum = 0;
  for (const int* number : list) sum += *number;
  EXPECT_EQ(sum, 499999500000LL);
}

class Incomplete;
class Owner {
 public:
  Owner();
  ~Owner();
  int Count() const;

 private:
  ObjectList<Incomplete> m_children;
};

class Incomplete {};

Owner::Owner() { m_children.Append(std::make_unique<Incomplete>()); }
Owner::~Owner() = default;
int Owner::Count() const { return m_children.Count(); }

TEST(ObjectList, CanOwnATypeThatIsOnlyDeclared) {
  EXPECT_EQ(Owner().Count(), 1);
  EXPECT_FALSE(std::is_copy_constructible_v<ObjectList<Incomplete>>);
}

}  // namespace
