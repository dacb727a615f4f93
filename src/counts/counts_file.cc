#include "counts/counts_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

namespace torvane {
namespace {

constexpr std::size_t kCountsPiece = std::size_t{1} << 16;
constexpr std::uint64_t kMostTold = 20;
constexpr const char* kFormat = "1";

bool read_number(const std::string& text, std::uint64_t& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end && !text.empty();
}

int open_counts(const std::string& name) {
  return name == "-" ? dup(STDIN_FILENO) : open(name.c_str(), O_RDONLY | O_CLOEXEC);
}

}  // namespace

std::string CountsHeader::kind() const {
  return "grammar " + grammar + ' ' + version + ", style " + style;
}

void CountsHeader::add(const CountsHeader& other) {
  sentences = sum_of_counts(sentences, other.sentences);
  words = sum_of_counts(words, other.words);
}

void CountsHeader::write(FileWriter& out) const {
  out.write(std::string("# torvane-counts ") + kFormat + "\n# grammar " + grammar + ' ' + version +
            "\n# style " + style + "\n# sentences " + std::to_string(sentences) + "\n# words " +
            std::to_string(words) + '\n');
}

CountsFile::CountsFile(std::string name, Tell tell)
    : name_(std::move(name)),
      tell_(std::move(tell)),
      file_(open_counts(name_)),
      lines_(file_, kCountsPiece) {
  if (file_ < 0) {
    fault_ = name_ + ": " + std::strerror(errno);
  } else {
    read_header();
  }
}

CountsFile::~CountsFile() {
  if (file_ >= 0) close(file_);
}

bool CountsFile::header_line(const std::string& name, std::string& value) {
  const std::string start = "# " + name + ' ';
  std::string_view line;
  if (!lines_.line(line) || !line.starts_with(start) || lines_.is_cut()) return false;
  value = line.substr(start.size());
  ++line_number_;
  return true;
}

void CountsFile::read_header() {
  std::string format, grammar, sentences, words;
  const bool is_whole = header_line("torvane-counts", format) && format == kFormat &&
                        header_line("grammar", grammar) && header_line("style", header_.style) &&
                        header_line("sentences", sentences) && header_line("words", words) &&
                        read_number(sentences, header_.sentences) &&
                        read_number(words, header_.words);
  const std::size_t space = grammar.rfind(' ');
  if (!is_whole || space == grammar.npos) {
    fault_ = name_ + ": no file of counts";
    return;
  }
  header_.grammar = grammar.substr(0, space);
  header_.version = grammar.substr(space + 1);
}

void CountsFile::tell_of(const std::string& what) {
  if (++faults_ <= kMostTold)
    tell_(name_ + ':' + std::to_string(line_number_) + ": " + what + ": it is left out");
}

bool CountsFile::next(CountRow& row) {
  for (std::string_view line; lines_.line(line);) {
    ++line_number_;
    const char* fault = lines_.is_cut() ? "a row that is cut off" : read_count_row(line, row);
    if (!fault && row.key <= last_) fault = "a row that is not in order";
    if (!fault) {
      last_ = row.key;
      return true;
    }
    tell_of(fault);
  }
  if (faults_ > kMostTold)
    tell_(name_ + ": " + std::to_string(faults_) + " rows are left out in all");
  if (lines_.error() != 0) {
    ++faults_;
    tell_(name_ + ": " + std::strerror(lines_.error()));
  }
  return false;
}

std::string write_counts(const std::string& name, const CountsHeader& header, RowSource& rows) {
  WholeFile out(name);
  header.write(out);
  for (CountRow row; out.error() == 0 && rows.next(row);) write_count_row(out, row.key, row.count);
  return out.finish();
}

}  // namespace torvane
