// Libraries that are not built for the thread sanitizer: it does not see how they order their accesses.
extern "C" const char* __tsan_default_suppressions();
extern "C" const char* __tsan_default_suppressions() {
    return "called_from_lib:libjack.so\n"
           "called_from_lib:libfluidsynth.so\n"
           "called_from_lib:librtmidi.so\n"
           "called_from_lib:libgomp.so\n"
           "called_from_lib:libinstpatch\n"
           "called_from_lib:libglib\n";
}
