/** A camera's numbers in the space that the views draw in: right-handed, y up, looking along -z. */
import { Euler, Quaternion, Vector3 } from 'three';
import { PER_FRAME } from './channels.ts';

export interface Pose {
    readonly position: Vector3;
    readonly rotation: Quaternion;
    /** Millimetres. */
    readonly focalLength: number;
}

/** Scene units and z are left-handed in the numbers; heading, pitch and bank turn about y, x and z, the first one last. */
export function poseAt(numbers: Float64Array, frame: number): Pose {
    const [x, y, z, heading, pitch, bank, focalLength] = numbers.subarray(frame * PER_FRAME, frame * PER_FRAME + 7) as unknown as number[];
    return {
        position: new Vector3(x, y, -(z as number)),
        rotation: new Quaternion().setFromEuler(new Euler(pitch, heading, -(bank as number), 'YXZ')),
        focalLength: focalLength as number,
    };
}

/** Degrees, for a picture `ratio` times as wide as it is high, whose width the film back has. */
export const verticalField = (focalLength: number, filmBack: number, ratio: number): number =>
    (2 * Math.atan(filmBack / ratio / 2 / Math.max(focalLength, 1e-3)) * 180) / Math.PI;
