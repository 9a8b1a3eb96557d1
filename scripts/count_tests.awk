# Counts in a ctest log what passed and failed: the cases of a GoogleTest program, and one for any
# other test or a program that died before it could sum up.
/^\[  PASSED  \] [0-9]+ test/ { casesPassed = $4 }
/^\[  FAILED  \] [0-9]+ tests?, listed/ { casesFailed = $4 }
/^Test Passed\.$/ {
    passed += casesPassed ? casesPassed : 1
    casesPassed = casesFailed = 0
}
/^Test Failed\.$/ {
    passed += casesPassed
    failed += casesFailed ? casesFailed : 1
    casesPassed = casesFailed = 0
}
END { print passed + 0, failed + 0 }
