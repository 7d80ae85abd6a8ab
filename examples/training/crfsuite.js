// usage: node crfsuite.js TRAINING_DATA MODEL TEST_DATA
// Trains a model with the npm package crfsuite, tags the test data and prints tag, tag by the model, and the form.
const fs = require('fs');
const { Trainer, Tagger } = require('module').createRequire(process.cwd() + '/')('crfsuite');

const unescaped = (field) => field.replace(/\\([\\:])/g, '$1');

function sentences(file) {
  return fs.readFileSync(file, 'utf8').split(/\n\n+/).filter((text) => text).map((text) => {
    const tokens = text.split('\n').map((line) => line.split('\t').map(unescaped));
    return { tags: tokens.map((fields) => fields[0]), attributes: tokens.map((fields) => fields.slice(1)) };
  });
}

const [training, model, test] = process.argv.slice(2);
const trainer = new Trainer({ debug: false });
sentences(training).forEach(({ tags, attributes }) => trainer.append(attributes, tags));
trainer.train(model);

const tagger = new Tagger();
tagger.open(model);
sentences(test).forEach(({ tags, attributes }) => {
  const result = tagger.tag(attributes);
  tags.forEach((tag, i) => console.log(tag, result[i], attributes[i][0]));
  console.log();
});
