#if defined(__SANITIZE_THREAD__)

// The distribution's Qt Core is not instrumented, so the sanitizer sees it free what a QUrl or a QString shares, but
// not the counting of references that came before. What our own code does stays watched.
extern "C" const char* __tsan_default_suppressions() { return "called_from_lib:libQt6Core.so\n"; }

#endif
