#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// What the machine alone costs: the plainest code that moves the same bytes. The benchmarks print
/// ratios to these, so they are never tuned.
namespace brindlet::bench::floors {

/// Lists a tree with getdents64 and gives the number of entries seen.
std::size_t walk(const std::string& root);
/// The same, with the path of every message file.
std::vector<std::string> messageFiles(const std::string& root);
/// Opens, reads once up to 120,000 bytes, closes. The number of bytes.
std::size_t readOnce(const std::string& path);
/// Walks the tree and reads every message file on the way; the number of bytes.
std::size_t walkAndRead(const std::string& root);
/// Replaces `to` by a copy made with copy_file_range.
bool copy(const std::string& from, const std::string& to);
/// Steps through a statement without looking at a column; the number of rows.
std::size_t step(const std::string& database, const std::string& query, std::int64_t parameter);

}  // namespace brindlet::bench::floors
