// Carries the precompiled headers of the tests; holds nothing itself.
