#include "wordsim/sim_store.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "store/qhash.h"
#include "support/messages.h"
#include "support/packed_reader.h"
#include "wordsim/sim_word_db.h"

namespace torvane {
namespace {

constexpr std::size_t kPairBytes = 8;
constexpr std::size_t kLeastGroupBytes = 2;
constexpr int kTableChunk = 640000;
constexpr int kRecordChunk = 20000;

/// A similarity that is no number at all would upset every comparison: 0.
float read_real(PackedReader& in) {
  float value = in.real();
  return value == value ? value : 0;
}

void unpack_pairs(PackedReader& in, int n, int ids, int kept, Array<SimPair>& sims) {
  sims.reserve(kept);
  for (int i = 0; i < n; ++i) {
    auto id = in.integer();
    float sim = read_real(in);
    if (id < 1 || id >= ids) in.fail();
    if (i < kept) sims.append({id, sim});
  }
}

void unpack_groups(PackedReader& in, int kept, SimRecord& record, int pos) {
  LBitSet range(kept);
  if (kept > 0) range.set(0, kept - 1);
  for (int left = in.count(kLeastGroupBytes); left > 0 && in.good(); --left) {
    LBitSet group;
    in.read(group);
    group &= range;
    if (!group.is_empty()) record.add_group(pos, std::move(group));
  }
}

}  // namespace

void pack_record(const SimRecord& record, const char* word, StrBufs& out) {
  out.add_text(word);
  for (int pos = 0; pos < kPartsOfSpeech; ++pos) {
    const Array<SimPair>& sims = record.sims[pos];
    out.add_be32(static_cast<std::uint32_t>(sims.count()));
    if (!sims.empty()) {
      out.add_float(record.desc[pos]);
      out.add_float(record.sum[pos]);
    }
    for (const SimPair& pair : sims) {
      out.add_be32(static_cast<std::uint32_t>(pair.word));
      out.add_float(pair.sim);
    }
    out.add_be32(static_cast<std::uint32_t>(record.groups[pos].length()));
    for (const LBitSet* group : record.groups[pos]) group->pack(out);
  }
}

bool unpack_record(const char* bytes, const char* end, int ids, int most, SimRecord& record) {
  PackedReader in(bytes, end);
  for (int pos = 0; pos < kPartsOfSpeech && in.good(); ++pos) {
    int n = in.count(kPairBytes);
    int kept = std::min(n, std::max(most, 0));
    if (n > 0) {
      record.desc[pos] = read_real(in);
      record.sum[pos] = read_real(in);
      unpack_pairs(in, n, ids, kept, record.sims[pos]);
    }
    unpack_groups(in, kept, record, pos);
  }
  return in.good();
}

SimRecord* SimWordDb::load_from_file(const char* word) {
  StrBufs buf(kRecordChunk);
  if (!file->find(word, buf)) return nullptr;
  const char* key = buf.object();
  const char* end = key + buf.object_size() - 1;
  const char* value = std::find(key, end, '\0') + 1;
  auto record = std::make_unique<SimRecord>(get_id(key, true));
  int most = whole_lists_ ? std::numeric_limits<int>::max() : max_syns;
  if (value > end || !unpack_record(value, end, count(), most, *record)) {
    messages() << "SimWordDb: the record of " << word << " is damaged\n";
    return nullptr;
  }
  return &keep(std::move(record));
}

bool SimWordDb::attach_file(std::unique_ptr<QHash> store) {
  if (!store->has_no_records()) {
    StrBufs table(kTableChunk);
    std::uint32_t size = store->read_record(store->data_start(), table);
    const char* cursor = table.object();
    const char* end = cursor + size;
    if (size == 0 || !unpack(cursor, end) || cursor != end) {
      clear();
      return false;
    }
  }
  file = std::move(store);
  return true;
}

void SimWordDb::save() {
  if (!file || !file->is_open() || file->read_only()) return;
  bool is_new = file->has_no_records();
  StrBufs packed(kTableChunk);
  pack(packed);
  bool good = file->write_record(is_new ? 0 : file->data_start(), packed.object(),
                                 packed.object_size()) != 0;
  StrBufs old(kRecordChunk);
  for (int id = 1; good && id < records.count(); ++id) {
    if (!records[id]) continue;
    packed.abandon();
    pack_record(*records[id], get_string(id), packed);
    std::uint32_t pos = is_new ? 0 : file->find(get_string(id), old);
    good = pos ? file->update(pos, packed.object(), packed.object_size(), 0, false) != 0
               : file->insert(packed.object(), packed.object_size()) != 0;
  }
  file->sync();
}

}  // namespace torvane
