/** Motion blur: pictures of moments while the shutter is open, in equal shares. */

/** Frames: half of each, as with a shutter of 180 degrees. */
export const SHUTTER = 0.5;
export const MOMENTS = 12;

/** Draws each picture over those before it with the share that makes all of them equal. */
export function blend(target: CanvasRenderingContext2D, source: HTMLCanvasElement, count: number, draw: (moment: number) => void): void {
    target.canvas.width = source.width;
    target.canvas.height = source.height;
    for (let moment = 0; moment < count; ++moment) {
        draw(moment);
        target.globalAlpha = 1 / (moment + 1);
        target.drawImage(source, 0, 0);
    }
    target.globalAlpha = 1;
}
