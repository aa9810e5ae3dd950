#include "tests/support/internal/Run.h"

int main(int count, char** words) {
    return wardlock::tests::runTests(count, words);
}
