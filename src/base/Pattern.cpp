#include "base/Pattern.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <cassert>

namespace brindlet {

struct Pattern::Compiled {
    pcre2_code* code = nullptr;
    ~Compiled() { pcre2_code_free(code); }
};

namespace {

/// A match needs scratch memory; one block a thread spares an allocation a subject.
pcre2_match_data* scratch() {
    struct Block {
        pcre2_match_data* data = pcre2_match_data_create(1, nullptr);
        ~Block() { pcre2_match_data_free(data); }
    };
    thread_local const Block block;
    return block.data;
}

}  // namespace

Pattern::Pattern(std::string_view expression) : compiled_(std::make_unique<Compiled>()) {
    int error = 0;
    PCRE2_SIZE offset = 0;
    compiled_->code =
        pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression.data()), expression.size(),
                      PCRE2_UTF | PCRE2_UCP, &error, &offset, nullptr);
    assert(compiled_->code && "the pattern does not compile");
    if (compiled_->code) pcre2_jit_compile(compiled_->code, PCRE2_JIT_COMPLETE);
}

Pattern::~Pattern() = default;

bool Pattern::occursIn(std::string_view text) const {
    if (!compiled_->code) return false;
    return pcre2_match(compiled_->code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0,
                       0, scratch(), nullptr) >= 0;
}

}  // namespace brindlet
