/** One of a few, side by side. */
export function Segments<Name extends string>({ label, group, names, texts, chosen, choose }: {
    label: string; group: string; names: readonly Name[]; texts: (name: Name) => string | undefined; chosen: Name; choose: (name: Name) => void;
}) {
    return (
        <div role="radiogroup" aria-label={label} class="segments">
            {names.map((name) => (
                <label key={name} class={name === chosen ? 'on' : ''}>
                    <input type="radio" name={group} checked={name === chosen} onChange={() => choose(name)} />{texts(name)}
                </label>))}
        </div>
    );
}
