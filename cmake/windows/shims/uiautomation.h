#pragma once
#pragma GCC system_header
#include_next <uiautomation.h>

// missing from mingw-w64 12 (values and vtable order as in mingw-w64 14 / Windows SDK)
#ifndef UIA_IsReadOnlyAttributeId
#define UIA_IsReadOnlyAttributeId (40015)
#endif
#ifndef UIA_CaretPositionAttributeId
#define UIA_CaretPositionAttributeId (40038)
#endif

enum CaretPosition
{
    CaretPosition_Unknown = 0,
    CaretPosition_EndOfLine = 1,
    CaretPosition_BeginningOfLine = 2
};

#ifndef __ISelectionProvider2_INTERFACE_DEFINED__
#define __ISelectionProvider2_INTERFACE_DEFINED__
MIDL_INTERFACE ("14f68475-ee1c-44f6-a869-d239381f0fe7")
ISelectionProvider2 : public ISelectionProvider
{
    virtual HRESULT STDMETHODCALLTYPE get_FirstSelectedItem (IRawElementProviderSimple**) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_LastSelectedItem (IRawElementProviderSimple**) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_CurrentSelectedItem (IRawElementProviderSimple**) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ItemCount (int*) = 0;
};
__CRT_UUID_DECL (ISelectionProvider2, 0x14f68475, 0xee1c, 0x44f6, 0xa8, 0x69, 0xd2, 0x39, 0x38, 0x1f, 0x0f, 0xe7)
#endif
