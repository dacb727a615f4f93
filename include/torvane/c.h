/* torvane for C. All text is UTF-8; what is no UTF-8 goes through byte by byte.
 *
 * Functions never throw, never print, and give a handle even where something is wrong: ask it for
 * its error. Handles may be used by any thread; an engine serves one call at a time, the others
 * wait. A null handle is taken as an empty one. Within a major version the functions stay as they
 * are, and structs only grow at their ends.
 */
#ifndef TORVANE_C_H
#define TORVANE_C_H

#include <stddef.h>
#include <torvane/version.h>

#if defined(__GNUC__)
#define TORVANE_API __attribute__((visibility("default")))
#else
#define TORVANE_API
#endif

#ifdef __cplusplus
#define TORVANE_NOEXCEPT noexcept
extern "C" {
#else
#define TORVANE_NOEXCEPT
#endif

/* A loaded grammar. */
typedef struct torvane_engine torvane_engine;
/* Sentences that were parsed or read. What it hands out lives as long as it does. */
typedef struct torvane_document torvane_document;

/* Start from TORVANE_OPTIONS; null and 0 stand for what the command line does without options. */
typedef struct torvane_options {
  size_t size;        /* of this struct */
  const char* data;   /* folder of the grammars; null: `share/torvane` beside the library */
  const char* style;  /* head style: "content", or "grammar" */
  size_t max_words;   /* a longer sentence is parsed piece by piece; 0: 200 */
  const char* counts; /* folder of a database of counts that advises the grammar */
  int explains;       /* 1: torvane_why quotes the grammar's forms, which takes memory */
} torvane_options;

#ifdef __cplusplus
#define TORVANE_OPTIONS                                      \
  torvane_options {                                          \
    sizeof(torvane_options), nullptr, nullptr, 0, nullptr, 0 \
  }
#else
#define TORVANE_OPTIONS ((torvane_options){sizeof(torvane_options), NULL, NULL, 0, NULL, 0})
#endif

/* Texts are never null; what is not known is empty. Places are those of the text that was parsed;
 * where words or trees were given, those of the sentence's own text. */
typedef struct torvane_word {
  const char* form;     /* as it stands in the text */
  const char* lemma;    /* base form */
  const char* upos;     /* universal category */
  const char* xpos;     /* category of the grammar */
  const char* features; /* "Name=Value|Name=Value" */
  const char* relation; /* to the head; "root" for the root */
  int head;             /* number of the head from 1; 0: the root; -1: not known */
  int outside;          /* 1: the grammar took it into no tree */
  size_t begin, end;    /* characters: the first one, and behind the last one */
  size_t begin_byte, end_byte;
} torvane_word;

typedef struct torvane_sentence {
  const char* text;
  const char* id;  /* a number from 1, or what a file calls it */
  const char* cut; /* what kept the parse from being complete: "words", "items"; or empty */
  int parts;       /* trees that the grammar found; their tops hang on one root */
  int starts_paragraph;
  size_t words;      /* how many */
  size_t begin, end; /* characters */
  size_t begin_byte, end_byte;
} torvane_sentence;

/* Of the library that runs. */
TORVANE_API const char* torvane_version(void) TORVANE_NOEXCEPT;

/* Loads a grammar: by its name ("english"; null for that), or the path of a start-up file. The
 * options may be null. */
TORVANE_API torvane_engine* torvane_open(const char* grammar,
                                         const torvane_options* options) TORVANE_NOEXCEPT;
TORVANE_API void torvane_close(torvane_engine* engine) TORVANE_NOEXCEPT;
/* Why the grammar did not load, with its messages; null if it did. */
TORVANE_API const char* torvane_engine_error(const torvane_engine* engine) TORVANE_NOEXCEPT;
/* What the grammar has printed since the last call, the first 64 KB of it. torvane_free ends it. */
TORVANE_API char* torvane_engine_messages(torvane_engine* engine) TORVANE_NOEXCEPT;

/* Parses running text: cuts it into sentences, and these into words. */
TORVANE_API torvane_document* torvane_parse(torvane_engine* engine, const char* text,
                                            size_t length) TORVANE_NOEXCEPT;
/* The same of text of another kind, by the names of `torvane parse --from`: "lines", "tokens",
 * "conllu" and so on. */
TORVANE_API torvane_document* torvane_parse_from(torvane_engine* engine, const char* kind,
                                                 const char* text, size_t length) TORVANE_NOEXCEPT;
/* Parses a text as one sentence. */
TORVANE_API torvane_document* torvane_parse_sentence(torvane_engine* engine, const char* text,
                                                     size_t length) TORVANE_NOEXCEPT;
/* Parses words, each ended by a zero byte, as one sentence. */
TORVANE_API torvane_document* torvane_parse_words(torvane_engine* engine, const char* const* words,
                                                  size_t count) TORVANE_NOEXCEPT;
/* Why a word of a sentence is not under another one: words count from 1, head 0 is the root;
 * modifier 0: why the tree is as it is. Gives the object that `torvane why --json` writes, with a
 * member `fault` where there is no answer; null without an engine. `written` is its length, and may
 * be null. torvane_free ends it. */
TORVANE_API char* torvane_why(torvane_engine* engine, const char* text, size_t length, int modifier,
                              int head, size_t* written) TORVANE_NOEXCEPT;
/* Reads trees without parsing, by the names of `torvane convert`: "conllu" and so on. */
TORVANE_API torvane_document* torvane_read(const char* format, const char* text,
                                           size_t length) TORVANE_NOEXCEPT;
TORVANE_API void torvane_document_free(torvane_document* document) TORVANE_NOEXCEPT;

/* What was wrong; null if nothing was. Faults of a file stand a line each, with the number of its
 * line; its other sentences are there. */
TORVANE_API const char* torvane_document_error(const torvane_document* document) TORVANE_NOEXCEPT;
/* How many sentences. */
TORVANE_API size_t torvane_document_size(const torvane_document* document) TORVANE_NOEXCEPT;
/* From 0; null behind the last one. */
TORVANE_API const torvane_sentence* torvane_document_sentence(const torvane_document* document,
                                                              size_t sentence) TORVANE_NOEXCEPT;
TORVANE_API const torvane_word* torvane_document_word(const torvane_document* document,
                                                      size_t sentence,
                                                      size_t word) TORVANE_NOEXCEPT;

/* Writes all sentences, or one, by the names of `torvane parse --to`: "conllu", "json", "tree" and
 * so on. Null if there is no such format or sentence. `length` may be null. A zero byte stands
 * behind the text; torvane_free ends it. */
TORVANE_API char* torvane_document_write(const torvane_document* document, const char* format,
                                         size_t* length) TORVANE_NOEXCEPT;
TORVANE_API char* torvane_sentence_write(const torvane_document* document, size_t sentence,
                                         const char* format, size_t* length) TORVANE_NOEXCEPT;
TORVANE_API void torvane_free(void* text) TORVANE_NOEXCEPT;

#ifdef __cplusplus
}
#endif

#endif
