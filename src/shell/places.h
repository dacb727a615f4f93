// The places of a world: its files, the form in hand, and where the things stand that were made of
// forms. How to ask: set `kept` before a grammar is loaded, then `text(of(thing))` is the place of
// a compiled expression (also of a part of one) or of a link, such as "english/nouns.lsp:63".
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "shell/irslist.h"
#include "shell/place.h"

namespace torvane {

class PlacedMessages;
struct PlacedMessage;

class Places {
 public:
  Places();
  ~Places();

  /// Whether the places of things are kept. A thing that ended may leave its place to another one
  /// that is made without a place where it lay.
  bool kept = false;
  /// The place of a thing that was made while places were kept; none for any other.
  Place of(const void* thing) const;
  void keep(const void* thing, Place place) {
    if (kept && place) places_[thing] = place;
  }

  /// The place of the first line of a file that is to be read; none for an empty path.
  Place begin_file(const std::string& path);
  /// The paths of the files that were read, in their order; one that was read twice stands twice.
  const std::vector<std::string>& files() const { return files_; }
  /// From now on, files in these folders are named from there.
  void name_from(std::vector<std::string> folders) { folders_ = std::move(folders); }
  /// "FILE:LINE"; empty for none.
  std::string text(Place place) const;
  /// The path of a place's file; empty for none.
  std::string_view file_of(Place place) const;

  /// The innermost form that is being run or compiled.
  Place current;
  /// The form of a file that is being run, as its head and first argument; empty if no place is
  /// wanted in messages.
  std::string top_form;

  /// Lets a line with its place follow each message that goes to `out`.
  void want_in_messages(std::ostream& out);
  /// Gives each message to `taker`, with its place. `at_end` runs when the process ends because of
  /// what the last message tells.
  void give_messages(std::function<void(const PlacedMessage&)> taker,
                     std::function<void()> at_end = {});
  /// Null if no place is wanted in messages.
  PlacedMessages* messages() const { return messages_.get(); }

 private:
  std::vector<std::string> files_, folders_;
  std::unordered_map<const void*, Place> places_;
  std::unique_ptr<PlacedMessages> messages_;
};

/// While it lives, a form is in hand; one that stands nowhere stands where the form around it does.
class PlaceScope {
 public:
  PlaceScope(Places& places, Place here)
      : places_(places), outer_(std::exchange(places.current, here ? here : places.current)) {}
  ~PlaceScope() { places_.current = outer_; }
  PlaceScope(const PlaceScope&) = delete;
  PlaceScope& operator=(const PlaceScope&) = delete;

 private:
  Places& places_;
  Place outer_;
};

/// While it lives, a form of a file runs.
class TopFormScope {
 public:
  TopFormScope(Places& places, const IRSlist& form);
  ~TopFormScope();
  TopFormScope(const TopFormScope&) = delete;
  TopFormScope& operator=(const TopFormScope&) = delete;

 private:
  Places& places_;
  std::string outer_;
};

}  // namespace torvane
