#pragma once

namespace brindlet {

/// Called once, at the start of a program that scans. Each scan's threads come and go, and glibc
/// would give them up to eight heaps a processor, each of which keeps what was freed in it; two are
/// enough for us, and ten scans then take no more memory than two.
void shareHeaps();

}  // namespace brindlet
