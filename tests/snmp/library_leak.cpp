/// The SNMP library drops a table of the MIBs that it never reads whenever it is set up again,
/// which only tests do.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" [[gnu::visibility("default")]] const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() {
  return "leak:netsnmp_init_mib_internals";
}
// NOLINTEND(bugprone-reserved-identifier)
