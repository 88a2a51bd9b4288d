#pragma once

#include <oaidl.h>
#include <ocidl.h>

#include <initializer_list>

#include "automation/com/counted_object.h"
#include "automation/com/incoming_calls.h"
#include "automation/com/pointer.h"
#include "automation/com/role.h"
#include "automation/object.h"

namespace tallyra::automation::com {

// The interface by which clients of classic Basic hold a collection: a variable of its type takes every
// object that has it. It is their runtime library's, not the component's.
inline constexpr IID collection_interface_id = {
    0xA4C46780, 0x499F, 0x101B, {0xBB, 0x78, 0x00, 0xAA, 0x00, 0x38, 0x3C, 0xBB}};
// What a collection says its class is. No client can create one.
inline constexpr CLSID collection_class_id = {
    0xE8E500D0, 0x5C5E, 0x45D6, {0xB2, 0xE4, 0xBD, 0xA7, 0x04, 0xBB, 0x37, 0x7E}};

// Its slots. Variants come by pointer; a null pointer leaves an argument out where it may be.
class CollectionInterface : public IDispatch {
 public:
  virtual HRESULT STDMETHODCALLTYPE Item(VARIANT* index, VARIANT* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE Add(VARIANT* item, VARIANT* key, VARIANT* before, VARIANT* after) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_Count(LONG* result) = 0;
  virtual HRESULT STDMETHODCALLTYPE Remove(VARIANT* index) = 0;
  virtual HRESULT STDMETHODCALLTYPE get__NewEnum(IUnknown** result) = 0;

 protected:
  ~CollectionInterface() = default;
};

template <>
inline const IID& identifier<CollectionInterface>() {
  return collection_interface_id;
}

// A Collection of this module as other modules see it. Where this module has a type library with the
// interface, as Tallyra.dll has, the collection describes itself by that.
class CollectionObject final
    : public CountedObject<CollectionInterface, ISupportErrorInfo, IProvideClassInfo> {
 public:
  // The object must be a Collection.
  static Pointer<IDispatch> make(const Object& object, Role role);

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* failure, UINT* argument_at_fault) override;

  STDMETHODIMP Item(VARIANT* index, VARIANT* result) override;
  STDMETHODIMP Add(VARIANT* item, VARIANT* key, VARIANT* before, VARIANT* after) override;
  STDMETHODIMP get_Count(LONG* result) override;
  STDMETHODIMP Remove(VARIANT* index) override;
  STDMETHODIMP get__NewEnum(IUnknown** result) override;

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) override;
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;

 private:
  CollectionObject(const Object& object, Role role);
  ~CollectionObject() = default;

  void* find_interface(REFIID id) override;
  // Of a slot, with its arguments in their order.
  HRESULT call(DISPID id, std::initializer_list<const VARIANT*> arguments, VARIANT* result) noexcept;

  IncomingCalls calls_;
};

}  // namespace tallyra::automation::com
