/** Where the shot is looked at, and how it moves on. */
import { signal } from '@preact/signals';

const SPEEDS = [1, 2, 4, 8];

export class Playhead {
    readonly frame = signal(0);
    /** Frames a frame's time: 0 stands, 1 is the shot's own speed, below 0 backwards. */
    readonly speed = signal(0);
    readonly loops = signal(true);
    private first = 0;
    private last = 0;
    private framesPerSecond = 30;
    /** Where playing began, because frames added one by one would drift. */
    private started = { time: 0, frame: 0 };
    private ticking = false;

    setRange(first: number, last: number, framesPerSecond: number): void {
        this.first = first;
        this.last = last;
        this.framesPerSecond = framesPerSecond;
        this.frame.value = this.within(this.frame.value);
        this.started = { time: performance.now(), frame: this.frame.value };
    }
    go(frame: number): void {
        this.frame.value = this.within(Math.round(frame));
        this.started = { time: performance.now(), frame: this.frame.value };
    }
    play(speed: number): void {
        if (speed > 0 && this.frame.value === this.last && !this.loops.value) this.go(this.first);
        this.speed.value = speed;
        this.started = { time: performance.now(), frame: this.frame.value };
        if (speed !== 0 && !this.ticking) this.tick();
    }
    toggle(): void {
        this.play(this.speed.value === 0 ? 1 : 0);
    }
    /** J and L: faster with each press, or the other way at its own speed. */
    shuttle(direction: 1 | -1): void {
        const now = this.speed.value * direction;
        this.play(direction * (now <= 0 ? 1 : SPEEDS[Math.min(SPEEDS.indexOf(now) + 1, SPEEDS.length - 1)] ?? 1));
    }

    private within(frame: number): number {
        return Math.min(Math.max(frame, this.first), this.last);
    }
    private tick(): void {
        this.ticking = true;
        requestAnimationFrame((time) => {
            this.ticking = false;
            if (this.speed.value === 0) return;
            this.move(time);
            this.tick();
        });
    }
    private move(time: number): void {
        const played = Math.floor(((time - this.started.time) / 1000) * this.framesPerSecond * Math.abs(this.speed.value));
        const frame = this.started.frame + Math.max(0, played) * Math.sign(this.speed.value);
        const count = this.last - this.first + 1;
        if (frame >= this.first && frame <= this.last) this.frame.value = frame;
        else if (this.loops.value) this.frame.value = this.first + ((((frame - this.first) % count) + count) % count);
        else {
            this.frame.value = this.within(frame);
            this.speed.value = 0;
        }
    }
}
