/// Mesa doesn't free the vertex pipeline of its feedback mode with the context. The leak sanitizer
/// asks here, in every program that uses that mode, what to pass over.

/// The driver's name up to Mesa 24.1 and from 24.2 on.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:swrast_dri.so\nleak:libgallium\n";
}
