// refused: conversion from 'const void*' to non-scalar type 'tallyra::automation::Value' requested
// In C++ any pointer is a truth value, and a truth value is one of automation's.
#include "automation/value.h"

tallyra::automation::Value value(const void* address) {
#ifdef MENDED
  tallyra::automation::Value value = address != nullptr;
#else
  tallyra::automation::Value value = address;
#endif
  return value;
}
