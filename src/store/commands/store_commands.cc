// The commands on cached stores: linking to a file, writing back, listing, copying, checking.
#include <algorithm>
#include <utility>

#include "shell/file_search.h"
#include "shell/named_objects.h"
#include "shell/world.h"
#include "store/commands/offers.h"
#include "store/header_file.h"
#include "store/plhash.h"
#include "support/messages.h"
#include "support/text.h"

namespace torvane {

namespace {

constexpr long kProfileLengths = 50;
constexpr long kMostProfileLengths = 1000000;

PLHash* take_store(World& world, IRSlist* form) {
  return world.objects.find_as<PLHash>(form->get_str_val(), "PLHash", true);
}

Value search(World& world, IRSlist* form) {
  const char* name = form->get_str_val();
  auto* store = world.objects.find_as<PLHash>(name, "PLHash", false);
  if (!store) {
    messages() << "Database " << or_empty(name) << " is not found\n";
    return Value();
  }
  while (!form->empty())
    if (PLHashEntry* entry = store->find(form->get_str_val()))
      store->print_entry(entry, world.out());
  return Value();
}

/// Runs an operation of the first store with the second.
Value with_other(World& world, IRSlist* form, void (PLHash::*operation)(PLHash&)) {
  PLHash* target = take_store(world, form);
  PLHash* source = target ? take_store(world, form) : nullptr;
  if (source) (target->*operation)(*source);
  return Value();
}

Value copy(World& world, IRSlist* form) {
  return with_other(world, form, &PLHash::copy);
}

Value merge(World& world, IRSlist* form) {
  return with_other(world, form, &PLHash::merge);
}

// A list in front of the file's name is an expression that chooses nothing.
Value dump(World& world, IRSlist* form) {
  PLHash* store = take_store(world, form);
  if (!store) return Value();
  // Kept: dump-expression-chooses-nothing
  if (const IRSlist* first = form->nth(0); first && first->is_list()) form->pop_front();
  Ref<Stream> out = world.make_ostream(form->empty() ? nullptr : form->get_str_val());
  if (!out) return Value();
  store->sync();
  store->print_all(*out->out());
  out->out()->flush();
  if (!*out->out()) messages() << "The dump of the database could not be written\n";
  out->close();
  return Value();
}

Value link_file(World& world, IRSlist* form) {
  PLHash* store = take_store(world, form);
  if (!store) return Value();
  const char* name = form->get_str_val();
  bool writable = !form->empty() && same_word(form->get_str_val(), "rw");
  HeaderFile header(world.files, name, world.double_byte);
  store->link_file(world.objects, header, writable ? OpenMode::write : OpenMode::read);
  return Value();
}

Value unlink_file(World& world, IRSlist* form) {
  if (PLHash* store = take_store(world, form)) store->unlink_file();
  return Value();
}

Value sync(World& world, IRSlist* form) {
  if (PLHash* store = take_store(world, form)) store->sync();
  return Value();
}

/// Runs an operation of a store on the input that the next argument names.
Value with_input(World& world, IRSlist* form, void (PLHash::*operation)(std::istream&)) {
  PLHash* store = take_store(world, form);
  if (!store) return Value();
  Ref<Stream> in = world.input_stream(form->empty() ? nullptr : form->get_str_val());
  if (!in || !in->in()) return Value();
  (store->*operation)(*in->in());
  in->close();
  return Value();
}

Value populate(World& world, IRSlist* form) {
  return with_input(world, form, &PLHash::populate);
}

Value reconstruct(World& world, IRSlist* form) {
  return with_input(world, form, &PLHash::reconstruct);
}

Value get_total_count(World& world, IRSlist* form) {
  if (PLHash* store = take_store(world, form)) world.out() << store->total_count() << '\n';
  return Value();
}

Value validate(World& world, IRSlist* form) {
  if (PLHash* store = take_store(world, form)) store->check_all();
  return Value();
}

Value profile(World& world, IRSlist* form) {
  PLHash* store = take_store(world, form);
  if (!store) return Value();
  long max = form->empty() ? kProfileLengths : form->get_long_val();
  store->print_profile(static_cast<int>(std::clamp(max, 0L, kMostProfileLengths)));
  return Value();
}

Value sort_links(World& world, IRSlist* form) {
  if (PLHash* store = take_store(world, form)) store->sort_links();
  return Value();
}

Value print_free_list(World& world, IRSlist* form) {
  if (PLHash* store = take_store(world, form)) store->print_free_list();
  return Value();
}

constexpr Command kStoreCommands[] = {
    {"s", search, "(s db key1 ... keyn) Search a PLHash and print the entries that are found"},
    {"copy", copy, "(copy des-db src-db) Make a des-db a copy of src-db"},
    {"merge", merge, "(merge des-db src-db) merge the entries in src-db into des-db"},
    {"dump", dump,
     "(dump db [LExp] [output]) Print the entries in db that satisfy the LExp (if present) onto "
     "the output stream"},
    {"link-file", link_file,
     "(link-file db header.hdr) Link the db to a disk file so that if an entry is not found in db, "
     "the file will be searched."},
    {"unlink-file", unlink_file,
     "(unlink-file db) Remove the linkage between the db object and its associated disk file. This "
     "will also clear all the data (including global data) in db."},
    // Kept: syncronize
    {"sync", sync, "(sync db) Syncronize the in-memory object of db and its disk file"},
    // Kept: with-with-stuff
    {"populate", populate, "(populate db [input]) populate db with with stuff from input"},
    {"reconstruct", reconstruct,
     "(reconstruct db [input]) reconstruct db with with stuff from input"},
    {"get-total-count", get_total_count, "(get-total-count db) return the total count of db"},
    {"validate", validate, "(validate db) check the disk file consistency of db"},
    {"profile", profile, "(profile db) print the hashtable profile of db"},
    {"sort-links", sort_links,
     "(sort-links db) sort the links in each hash bucket so that they are in ascending order."},
    {"print-free-list", print_free_list,
     "(print-free-list db) print the free block list in the disk file"},
};

}  // namespace

constinit const Offer offers::store_commands{kStoreCommands};

}  // namespace torvane
