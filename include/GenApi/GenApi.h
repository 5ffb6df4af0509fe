// Umbrella header of the GenApi-compatible node-map engine.
#ifndef GENAPI_GENAPI_H
#define GENAPI_GENAPI_H

#include <Base/GCBase.h>
#include <GenApi/Types.h>
#include <GenApi/Container.h>
#include <GenApi/Synch.h>
#include <GenApi/IBase.h>
#include <GenApi/INode.h>
#include <GenApi/IValue.h>
#include <GenApi/IInteger.h>
#include <GenApi/IFloat.h>
#include <GenApi/IBoolean.h>
#include <GenApi/ICommand.h>
#include <GenApi/IEnumEntry.h>
#include <GenApi/IEnumeration.h>
#include <GenApi/ICategory.h>
#include <GenApi/IRegister.h>
#include <GenApi/IString.h>
#include <GenApi/ISelector.h>
#include <GenApi/IPort.h>
#include <GenApi/INodeMap.h>
#include <GenApi/IDestroy.h>
#include <GenApi/NodeCallback.h>
#include <GenApi/Pointer.h>
#include <GenApi/NodeMapFactory.h>
#include <GenApi/NodeMapRef.h>

#endif
