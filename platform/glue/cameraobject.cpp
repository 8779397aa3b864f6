// The camera's own values are parameters like any others.
#include "c4d_baseobject.h"
#include "lib_description.h"
#include "ocamera.h"

namespace {

GeData Get(const CameraObject *camera, LONG id) {
    GeData value;
    const_cast<CameraObject *>(camera)->GetParameter(DescID(id), value, DESCFLAGS_GET_0);
    return value;
}

Bool Set(CameraObject *camera, LONG id, const GeData &value) {
    return camera->SetParameter(DescID(id), value, DESCFLAGS_SET_0);
}

}  // namespace

LONG CameraObject::GetProjection() const { return Get(this, CAMERA_PROJECTION).GetLong(); }
Real CameraObject::GetZoom() const { return Get(this, CAMERA_ZOOM).GetReal(); }
Real CameraObject::GetAperture() const { return Get(this, CAMERAOBJECT_APERTURE).GetReal(); }
Real CameraObject::GetFocus() const { return Get(this, CAMERA_FOCUS).GetReal(); }
Bool CameraObject::SetProjection(LONG projection) { return Set(this, CAMERA_PROJECTION, GeData(projection)); }
Bool CameraObject::SetZoom(Real zoom) { return Set(this, CAMERA_ZOOM, GeData(zoom)); }
Bool CameraObject::SetAperture(Real aperture) { return Set(this, CAMERAOBJECT_APERTURE, GeData(aperture)); }
Bool CameraObject::SetFocus(Real focus) { return Set(this, CAMERA_FOCUS, GeData(focus)); }
