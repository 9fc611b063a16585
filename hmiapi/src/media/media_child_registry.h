// The elements that become level nodes of a medium's tree.
#ifndef HMI_MEDIA_CHILD_REGISTRY_H
#define HMI_MEDIA_CHILD_REGISTRY_H

#include "media/hmi_xml_node.h"

extern const HMIXMLChildRegistry HMIMediaChildRegistry;

#endif
