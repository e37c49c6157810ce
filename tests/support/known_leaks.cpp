/// What other libraries never free; the leak sanitizer asks here, in every test program, what to pass
/// over. Mesa doesn't free the vertex pipeline of its feedback mode with the context; fontconfig
/// loses a string list of its configuration, once in a process.

/// The driver's name is the first up to Mesa 24.1 and the second from 24.2 on.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:swrast_dri.so\nleak:libgallium\nleak:libfontconfig\n";
}
