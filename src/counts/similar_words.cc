#include "counts/similar_words.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <span>
#include <sstream>
#include <string_view>
#include <thread>

#include "shell/world.h"
#include "store/header_file.h"
#include "support/text.h"
#include "triples/db/triple_db.h"

namespace torvane {
namespace {

constexpr long kBuckets = 59999, kIdBuckets = 200011;
constexpr std::size_t kHeldBytes = sizeof(FeatureOverlap::Feature) + sizeof(float);
constexpr std::size_t kPairBytes = sizeof(SimPair);
// Of a feature that is in memory: as it is collected, and in the index.
constexpr std::size_t kBytesInRow = 40;
constexpr std::size_t kWordsAtOnce = 64;

/// All of a stretch of a file; false at an error.
bool read_stretch(int file, std::uint64_t offset, std::size_t size, std::string& bytes) {
  bytes.resize(size);
  for (std::size_t done = 0; done < size;) {
    const ssize_t got =
        pread(file, bytes.data() + done, size - done, static_cast<off_t>(offset + done));
    if (got <= 0 && errno != EINTR) return false;
    if (got > 0) done += static_cast<std::size_t>(got);
  }
  return true;
}

}  // namespace

SimilarWords::SimilarWords(std::size_t memory, const std::string& folder)
    : memory_(memory), features_(folder), lists_file_(folder) {}

int SimilarWords::error() const {
  if (features_.error() != 0) return features_.error();
  return lists_file_.error() != 0 ? lists_file_.error() : error_.load();
}

void SimilarWords::note_error(int error) {
  error_ = error != 0 ? error : EIO;
}

void SimilarWords::take(const WordFeatures& word) {
  const auto count = static_cast<std::uint32_t>(word.features.size());
  words_.push_back({word.word, word.entry, word.pos, feature_count_, count});
  totals_.push_back(word.total);
  feature_count_ += count;
  for (const FeatureOverlap::Held& held : word.features) {
    features_.write({reinterpret_cast<const char*>(&held.feature), sizeof held.feature});
    features_.write({reinterpret_cast<const char*>(&held.information), sizeof held.information});
  }
}

bool SimilarWords::read(const std::string& folder, float least_information) {
  std::ostringstream said;
  World world(World::Console{nullptr, &said, &said});
  const WorldScope here(world);
  world.files.only({folder});
  TripleDb db(kBuckets, kIdBuckets, false);
  HeaderFile header(world.files, "triples.hdr", world.double_byte);
  if (db.link_file(world.objects, header, OpenMode::read) < 1) return false;
  read_features(db, least_information, [this](const WordFeatures& word) { take(word); });
  features_read_ = features_.rewind();
  return true;
}

bool SimilarWords::read_features_of(const Word& word, Features& features) {
  std::string bytes;
  if (!read_stretch(features_read_, word.first_feature * kHeldBytes,
                    word.feature_count * kHeldBytes, bytes)) {
    note_error(errno);
    return false;
  }
  features.resize(word.feature_count);
  const char* at = bytes.data();
  for (FeatureOverlap::Held& held : features) {
    std::memcpy(&held.feature, at, sizeof held.feature);
    std::memcpy(&held.information, at + sizeof held.feature, sizeof held.information);
    at += kHeldBytes;
  }
  return true;
}

/// As many words as fit into memory, but one.
std::size_t SimilarWords::end_of_row(std::size_t first) const {
  std::size_t last = first, bytes = 0;
  while (last < words_.size() && (last == first || bytes < memory_))
    bytes += words_[last++].feature_count * kBytesInRow + sizeof(float);
  return last;
}

void SimilarWords::compare(std::size_t most, std::size_t threads) {
  for (std::size_t first = 0; first < words_.size() && error() == 0;) {
    const std::size_t last = end_of_row(first);
    compare_with(first, last, most, threads);
    first = last;
  }
  lists_read_ = lists_file_.rewind();
}

void SimilarWords::compare_with(std::size_t first, std::size_t last, std::size_t most,
                                std::size_t threads) {
  FeatureOverlap row(static_cast<int>(first),
                     std::span<const float>(totals_).subspan(first, last - first));
  Features features;
  for (std::size_t i = first; i < last && read_features_of(words_[i], features); ++i)
    for (const FeatureOverlap::Held& held : features) row.add(static_cast<int>(i), held);
  row.build_index();
  Lists& lists = lists_.emplace_back(words_.size());
  std::atomic<std::size_t> next = 0;
  std::vector<std::thread> others;
  for (std::size_t i = 1; i < threads; ++i)
    others.emplace_back([&] { compare_some(row, most, next, lists); });
  compare_some(row, most, next, lists);
  for (std::thread& other : others) other.join();
}

void SimilarWords::compare_some(const FeatureOverlap& row, std::size_t most,
                                std::atomic<std::size_t>& next, Lists& lists) {
  FeatureOverlap::Question question(row);
  Features features;
  std::string bytes;
  for (std::size_t first; (first = next.fetch_add(kWordsAtOnce)) < words_.size();) {
    const std::size_t last = std::min(first + kWordsAtOnce, words_.size());
    bytes.clear();
    for (std::size_t i = first; i < last; ++i) {
      if (!read_features_of(words_[i], features)) return;
      const std::vector<SimPair>& found =
          question.neighbours(static_cast<int>(i), features, totals_[i], most);
      lists[i] = {bytes.size(), static_cast<std::uint32_t>(found.size())};
      bytes.append(reinterpret_cast<const char*>(found.data()), found.size() * kPairBytes);
    }
    const std::lock_guard lock(mutex_);
    for (std::size_t i = first; i < last; ++i) lists[i].offset += lists_size_;
    lists_file_.write(bytes);
    lists_size_ += bytes.size();
  }
}

bool SimilarWords::read_list(const ListPlace& place, std::vector<SimPair>& pairs) {
  std::string bytes;
  if (!read_stretch(lists_read_, place.offset, place.pairs * kPairBytes, bytes)) {
    note_error(errno);
    return false;
  }
  const std::size_t had = pairs.size();
  pairs.resize(had + place.pairs);
  if (place.pairs > 0) std::memcpy(pairs.data() + had, bytes.data(), bytes.size());
  return true;
}

void SimilarWords::write(FileWriter& out, std::size_t most) {
  std::vector<SimPair> pairs;
  for (std::size_t i = 0; i < words_.size() && out.error() == 0; ++i) {
    const Word& word = words_[i];
    pairs.clear();
    for (const Lists& lists : lists_)
      if (!read_list(lists[i], pairs)) return;
    keep_most_similar(pairs, most);
    const bool begins = i == 0 || words_[i - 1].entry != word.entry;
    const bool ends = i + 1 == words_.size() || words_[i + 1].entry != word.entry;
    if (begins) out.write('(' + word.word);
    out.write(std::string(" (") + kPartOfSpeechNames[word.pos] + ' ' +
              std::string(float_text(totals_[i])) + " (");
    const char* before = "";
    for (const SimPair& pair : pairs) {
      out.write(before + words_[static_cast<std::size_t>(pair.word)].word + ' ' +
                std::string(float_text(pair.sim)));
      before = " ";
    }
    out.write("))");
    if (ends) out.write(")\n");
  }
}

}  // namespace torvane
