// The memory file system is checked where it matters: it runs the same
// contract suite as the POSIX backend (file_system_contract_test.cc), and
// the wizard's tests assert on what it records.
