#include "chart/chart_file_damage.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>

namespace {

using namespace orvalix::test;

/// The work is divided so that the parts can run side by side.
constexpr int kShards = 8;
#ifdef __SANITIZE_ADDRESS__
constexpr int kChangedFiles = 33000;  // each takes several times as long
#else
constexpr int kChangedFiles = 100000;
#endif

class ChartFileDamage : public ::testing::TestWithParam<int> {
 protected:
  ChartFileDamage() : file(FullFile()), changer(static_cast<unsigned>(GetParam()) + 1) {}

  /// One shard's part of many files that `change` changes; some of them are drawn.
  template <class Change>
  void EndureAll(int files, Change change) {
    constexpr int kOneOfDrawn = 300;
    int round = 0;
    for (; round < files / kShards && !HasFailure(); ++round) {
      Bytes changed = file.bytes;
      change(changed);
      patient.Endure(changed);
      if (round % kOneOfDrawn == 0) patient.Draw();
    }
    EXPECT_FALSE(HasFailure()) << "file " << round;
  }

  KnownFile file;
  Patient patient;
  Changer changer;
};

TEST_P(ChartFileDamage, SurvivesTheEndAtEveryByte) {
  constexpr std::size_t kOneOfDrawn = 300;
  for (auto length = static_cast<std::size_t>(GetParam()); length < file.bytes.size();
       length += kShards) {
    SCOPED_TRACE(length);
    const auto end = file.bytes.begin() + static_cast<std::ptrdiff_t>(length);
    patient.Endure(Bytes(file.bytes.begin(), end));
    if (length / kShards % kOneOfDrawn == 0) patient.Draw();
    if (HasFailure()) break;
  }
}

TEST_P(ChartFileDamage, SurvivesChangedBytes) {
  EndureAll(kChangedFiles, [&](Bytes& changed) { changer.ChangeBytes(changed); });
  EXPECT_GT(patient.Refused(), 0);
}

TEST_P(ChartFileDamage, SurvivesFieldsOfHostileNumbers) {
  EndureAll(kChangedFiles / 5, [&](Bytes& changed) { changer.ChangeFields(changed, file.fields); });
  EXPECT_GT(patient.Refused(), 0);
}

/// Every integer of a file, one after the other, as numbers that promise too much.
TEST_P(ChartFileDamage, SurvivesEachIntegerAlone) {
  for (auto i = static_cast<std::size_t>(GetParam()); i < file.fields.size(); i += kShards) {
    const RecordField& field = file.fields[i];
    if (field.end - field.begin != sizeof(int)) continue;
    for (const unsigned number : {0x7fffffffU, 0x80000000U, 0xffffffffU, 1000000U, 300U}) {
      SCOPED_TRACE(::testing::Message() << field.name << " at " << field.begin << ": " << number);
      Bytes changed = file.bytes;
      std::memcpy(&changed[field.begin], &number, sizeof(number));
      patient.Endure(changed);
      if (number == 0x7fffffffU) patient.Draw();
      if (HasFailure()) return;
    }
  }
}

/// Fields whose numbers multiply each other's work, all of them large at once.
TEST(ChartFileDrawing, ComesToAnEnd) {
  using Clock = std::chrono::steady_clock;
  const KnownFile file = FullFile();
  Bytes changed = file.bytes;
  const auto fill = [&](const char* name, auto value) {
    int filled = 0;
    for (const RecordField& field : file.fields) {
      if (field.name != name) continue;
      ASSERT_EQ((field.end - field.begin) % sizeof(value), 0U) << name;
      for (std::size_t at = field.begin; at < field.end; at += sizeof(value), ++filled) {
        std::memcpy(&changed[at], &value, sizeof(value));
      }
    }
    EXPECT_GT(filled, 0) << name;
  };
  constexpr int kHuge = 0x7fffffff;
  fill("tic spacing", 1e-9);
  for (const char* name : {"labels decimals", "rows", "columns", "contour decimals", "repeat x",
                           "repeat y", "font characters", "line width", "symbol"}) {
    fill(name, kHuge);
  }
  for (const char* name :
       {"nth tic major", "grid nth tic 1", "grid nth tic 2", "grid wall flag", "grid enable",
        "axis enable", "axis labels enable", "plane enable", "labels set", "set"}) {
    fill(name, 1);
  }
  fill("label strings enable", 0);
  Patient patient;
  patient.Endure(changed);
  const Clock::time_point start = Clock::now();
  patient.Draw();
  EXPECT_LT(Clock::now() - start, std::chrono::seconds(60));  // on a busy machine
}

INSTANTIATE_TEST_SUITE_P(Shards, ChartFileDamage, ::testing::Range(0, kShards));

}  // namespace
