#pragma once

#include <exception>
#include <new>

#include "automation/member_table.h"
#include "standins/ado/ado_error.h"

namespace tallyra::standins::ado {

// A late-bound object out of which nothing comes but Error, whatever goes wrong inside.
template <class T>
class AdoObject : public automation::Implements<T> {
 public:
  automation::Value invoke(automation::MemberId id, automation::Access access,
                           automation::Arguments arguments) override {
    try {
      return automation::Implements<T>::invoke(id, access, arguments);
    } catch (const automation::Error&) {
      throw;
    } catch (const std::bad_alloc&) {
      throw automation::Error(automation::error_number::out_of_memory);
    } catch (const std::exception& unexpected) {
      throw automation::Error(provider_error::unspecified, unexpected.what());
    }
  }
};

}  // namespace tallyra::standins::ado
