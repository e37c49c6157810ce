#include "chart/chart_file_damage.h"

#include <gtest/gtest.h>

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

INSTANTIATE_TEST_SUITE_P(Shards, ChartFileDamage, ::testing::Range(0, kShards));

}  // namespace
